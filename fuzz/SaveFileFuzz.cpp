// libFuzzer target: arbitrary bytes as a save game, loaded the way "loadgame"
// loads it into a game with the gameplay controller and its player, played
// for a frame and a few steps and saved again, so the reader, the restored
// bodies and the writer all meet the hostile state. Saves name the level "fuzzlevel".
// Build with clang and -DBQ_FUZZ=ON; new inputs go to the first directory:
//   build-fuzz/fuzz/bq_fuzz_save_file /tmp/new-inputs fuzz/corpus/save_file
#include <sys/stat.h>

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>

#include "FuzzScratch.h"
#include "console/Console.h"
#include "core/Clock.h"
#include "core/Game.h"
#include "core/ManualClock.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

namespace {
char pattern[] = "/tmp/bqsavefuzzXXXXXX";
Game* game = nullptr;
ManualClock manualClock{100000};

const char* const level = R"(<level><Objects>
<P type="default" idname="floor"><params mass="0" solid="true"/><verts>
<v origin="-2000,-100"/><v origin="2000,-100"/><v origin="2000,0"/><v origin="-2000,0"/></verts></P>
<P type="spawnpoint" idname="start"><params mass="0" solid="false" entity="true"/><verts>
<v origin="-4,20"/><v origin="4,20"/><v origin="4,28"/><v origin="-4,28"/></verts>
<attributes><a name="startpoint" value="true"/></attributes></P>
</Objects></level>)";

void setUp()
{
    fuzzscratch::enter(pattern);
    mkdir("maps", 0700);
    mkdir("saves", 0700);
    std::ofstream("maps/fuzzlevel.xml") << level;
    Clock::install(&manualClock);
    static Game theGame(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    theGame.setGravityOverride(-80.0f);
    theGame.getTimer().start();
    theGame.startGameplay();
    game = &theGame;
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (!game)
        setUp();
    fuzzscratch::writeInput("saves/fuzz.xml", data, size);
    game->loadGame("fuzz");
    // One whole frame draws the restored world and its HUD; the further
    // steps need no drawing, which cost more than the load itself.
    manualClock.advance(25);
    game->runFrame();
    for (int i = 0; i < 3; ++i)
        game->stepWorld();
    game->setPendingSaveName("again");
    game->saveGame();
    game->unloadLevel();
    // New console lines would make every input look like a leak to libFuzzer.
    if (Console* console = game->getConsole())
        console->clear();
    return 0;
}
