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

#include "console/Console.h"
#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"
#include "FuzzScratch.h"

namespace {
Game* game = nullptr;

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
// in a private directory holding maps/fuzz.xml.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
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
    // An input that leaves more blocks than it found makes libFuzzer scan
    // the heap for leaks; the console's new lines would do that every time.
    if (Console* console = game->getConsole())
        console->clear();
    return 0;
}
