#include "core/GameCommands.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <cstdio>
#include <fstream>
#include <set>
#include <string>

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gui/WidgetGallery.h"
#include "menus/ControlsHelp.h"
#include "particles/ParticleCommands.h"
#include "render/LevelShot.h"
#include "render/SkyManager.h"
#include "resources/FileOps.h"
#include "resources/ResourceManager.h"
#include "world/body/Body.h"

namespace {
std::string versionText(const SDL_version& v)
{
    return std::to_string(v.major) + "." + std::to_string(v.minor) + "." + std::to_string(v.patch);
}

const CommandRegistry& registry() { return CommandRegistry::instance(); }

// A mistyped sky name would otherwise change nothing without a word.
void reportUnknownSky(const std::string& name)
{
    std::set<std::string> files;
    FileOps::listFolder("data/sky", "*.xml", files);
    ResourceManager::instance().listFiles("data/sky", "*.xml", files);
    std::string known;
    for (const std::string& file : files) {
        if (file.size() <= 4)
            continue;
        known += (known.empty() ? "" : ", ") + file.substr(0, file.size() - 4);
    }
    const std::string text = "No sky called \"" + name + "\". Skies: " + (known.empty() ? "none" : known);
    conPrint(text);
    std::printf("%s\n", text.c_str());
}

int varInt(const char* name)
{
    const GameVar* v = findVar(name);
    return v ? v->intValue : 0;
}
}

void GameCommands::registerAll(Game& game)
{
    ParticleCommands::registerAll(game);
    registerCommand("turn player collisions off", "noclip", [&game] { game.toggleNoclip(); });

    registerCommand("warp to 0 0 0", "warp", [&game] {
        if (Body* p = game.getPlayer()) {
            p->pos.set(0.0f, 0.0f, 0.0f);
            p->oldpos.set(0.0f, 0.0f, 0.0f);
        }
    });

    registerCommand("print out sdl info", "sdlinfo", [] {
        SDL_version compiled;
        SDL_VERSION(&compiled);
        std::printf("===SDL Info===\n");
        std::printf("SDL compiled version: : %s\n", versionText(compiled).c_str());
        std::printf("running with SDL version: %s\n", versionText(*SDL_Linked_Version()).c_str());
        SDL_version mixCompiled;
        MIX_VERSION(&mixCompiled);
        std::printf("SDL_mixer compiled version: : %s\n", versionText(mixCompiled).c_str());
        std::printf("running with SDL_mixer version: %s\n", versionText(*Mix_Linked_Version()).c_str());
    });

    registerCommand("dump texture cache info to file", "dumptextures", [&game] {
        const std::string name = registry().argumentCount > 0 ? registry().arguments[0]
                                                              : std::string("texturecachedump.txt");
        std::ofstream out(name);
        if (out)
            game.dumpTextures(out);
    });

    registerCommand("lock mouse in frame", "lockmouse", [] { SDL_WM_GrabInput(SDL_GRAB_ON); });
    registerCommand("unlock mouse from frame", "unlockmouse", [] { SDL_WM_GrabInput(SDL_GRAB_OFF); });
    registerCommand("debug res test", "resdbg", [&game] { game.changeVideoMode(1024, 768, false); });
    registerCommand("debug gui: open the widget gallery", "guidbg", [&game] { WidgetGallery::open(game); });
    registerCommand("show or hide the controls and what each is bound to", "controlshelp",
                    [&game] { ControlsHelp::toggle(game); });

    registerCommand("load a map", "map", [&game] {
        game.loadLevel(registry().argumentCount > 0 ? registry().arguments[0] : std::string("test.xml"), "");
    });
    registerCommand("unload a map", "unmap", [&game] { game.unloadLevel(); });

    registerCommand("take a screenshot", "screenshot", [&game] { game.requestCapture(); });
    registerCommand("picture of the whole level: levelshot <file>", "levelshot", [&game] {
        const std::string name = registry().argumentCount > 0 ? registry().arguments[0] : std::string();
        const std::string path = LevelShot::outputPath(name);
        if (path.empty())
            conPrint("usage: levelshot <file>, a plain file name such as quay.png");
        else
            game.requestLevelShot(path);
    });

    registerCommand("save game", "savegame", [&game] {
        game.setPendingSaveName(registry().argumentCount > 0 ? Game::saveNameFromArguments(registry().argumentLine)
                                                             : std::string("temp"));
        game.requestSave();
    });
    registerCommand("load game", "loadgame", [&game] {
        game.loadGame(registry().argumentCount > 0 ? Game::saveNameFromArguments(registry().argumentLine)
                                                   : std::string("temp"));
    });

    registerCommand("load a specified sky", "sky", [&game] {
        const std::string path = registry().argumentCount > 0 ? "data/sky/" + registry().arguments[0] + ".xml"
                                                              : std::string("data/sky/default.xml");
        game.loadSky(path);
        if (game.getSkyManager() && !game.getSkyManager()->isLoaded(path))
            reportUnknownSky(registry().argumentCount > 0 ? registry().arguments[0] : "default");
    });

    registerCommand("change the video mode based on vars", "vidrestart", [&game] {
        game.restartVideo(varInt("vidwidth"), varInt("vidheight"), varInt("vidfullscreen") > 0);
    });

    registerCommand("pause game", "pause", [&game] {
        if (game.isPaused())
            game.unpause();
        else
            game.pause();
    });
    registerCommand("show map", "+showmap", [&game] {
        game.setShowMap(true);
        if (!game.isPaused())
            game.pause();
    });
    registerCommand("stop showing map", "-showmap", [&game] {
        game.setShowMap(false);
        if (game.isPaused())
            game.unpause();
    });

    registerCommand("write all keybinds and variables to a config file", "writeconfig", [&game] {
        const std::string name = registry().argumentCount > 0 ? registry().arguments[0]
                                                              : std::string("data/config.txt");
        game.writeConfig(name, false);
        conPrint("Wrote keybinds and variables to " + name);
    });
}
