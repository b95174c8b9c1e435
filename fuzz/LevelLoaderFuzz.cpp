// libFuzzer target: arbitrary bytes as a level file, loaded the way "map"
// loads it, then stepped a few times so the physics meets the geometry too.
// Build with clang and -DBQ_FUZZ=ON; new inputs go to the first directory:
//   build-fuzz/fuzz/bq_fuzz_level_loader /tmp/new-inputs fuzz/corpus/level_loader
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "FuzzScratch.h"

namespace {
Game* game = nullptr;
std::vector<std::string> absoluteArgs;
std::vector<char*> argPointers;

void setUp()
{
    fuzzscratch::enter("/tmp/bqlevelfuzzXXXXXX");
    if (mkdir("maps", 0700) != 0)
        std::abort();
    static Game theGame(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    theGame.setGravityOverride(-80.0f);
    game = &theGame;
}
}

// The game reads levels relative to the working directory, so the fuzzer runs
// in a private directory holding maps/fuzz.xml. Corpus paths given relative
// to where it was started are made absolute first.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    for (int i = 0; i < *argc; ++i) {
        std::string arg = (*argv)[i];
        if (i > 0 && !arg.empty() && arg[0] != '-') {
            if (char* full = realpath(arg.c_str(), nullptr)) {
                arg = full;
                std::free(full);
            }
        }
        absoluteArgs.push_back(arg);
    }
    for (std::string& arg : absoluteArgs)
        argPointers.push_back(arg.data());
    argPointers.push_back(nullptr);
    *argv = argPointers.data();

    setUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // The replay driver has no initialise step (and passes absolute paths).
    if (!game)
        setUp();
    fuzzscratch::writeInput("maps/fuzz.xml", data, size);
    game->loadLevel("fuzz", "");
    for (int i = 0; i < 4; ++i) {
        game->applyGravity(Game::stepSeconds);
        game->freezeVelocities();
        game->collideBodies(Game::stepSeconds);
        game->moveBodies(Game::stepSeconds);
    }
    game->unloadLevel();
    return 0;
}
