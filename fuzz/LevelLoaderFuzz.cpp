// libFuzzer target: arbitrary bytes as a level file, loaded the way "map"
// loads it, then stepped a few times so the physics meets the geometry too.
// Build with clang and -DBQ_FUZZ=ON; run on a scratch copy of the seeds:
//   cp -r fuzz/corpus/level_loader /tmp/seeds && build-fuzz/fuzz_level_loader /tmp/seeds
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
Game* game = nullptr;
std::vector<std::string> absoluteArgs;
std::vector<char*> argPointers;
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

    char pattern[] = "/tmp/bqfuzzXXXXXX";
    const char* dir = mkdtemp(pattern);
    if (!dir || chdir(dir) != 0 || mkdir("maps", 0700) != 0)
        std::abort();
    // The loader's chatter goes nowhere; the fuzzer reports on stderr.
    if (!std::freopen("/dev/null", "w", stdout))
        std::abort();
    static Game theGame(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    theGame.setGravityOverride(-80.0f);
    game = &theGame;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    {
        std::ofstream out("maps/fuzz.xml", std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
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
