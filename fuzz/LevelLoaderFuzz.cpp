// libFuzzer target: arbitrary bytes as a level file, loaded the way "map"
// loads it, then stepped a few times so the physics meets the geometry too.
// Build with -DBQ_FUZZ=ON and clang; run from any directory:
//   build-fuzz/fuzz_level_loader fuzz/corpus/level_loader
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "core/Game.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
Game* setUp()
{
    // A private directory holding maps/fuzz.xml; the loader's chatter goes
    // nowhere so the fuzzer's own output stays readable.
    char pattern[] = "/tmp/bqfuzzXXXXXX";
    const char* dir = mkdtemp(pattern);
    if (!dir || chdir(dir) != 0 || system("mkdir -p maps") != 0)
        std::abort();
    if (!std::freopen("/dev/null", "w", stdout))
        std::abort();
    static Game game(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    game.setGravityOverride(-80.0f);
    return &game;
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Game* game = setUp();
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
