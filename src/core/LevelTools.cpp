#include "core/LevelTools.h"

#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "resources/GameDirectories.h"
#include "resources/ResourceManager.h"
#include "world/body/Body.h"
#include "world/level/BodyFactory.h"
#include "world/level/GameBodyFactory.h"
#include "world/level/LevelChecker.h"
#include "world/level/LevelSchema.h"
#include "world/level/TiledProject.h"

namespace {
std::string currentDirectory()
{
    char buffer[PATH_MAX];
    return getcwd(buffer, sizeof buffer) ? std::string(buffer) : std::string(".");
}

std::string absolute(const std::string& path, const std::string& base)
{
    return !path.empty() && path[0] == '/' ? path : base + "/" + path;
}

// The game's own factory: "default" first, then the game's type table.
struct Factories {
    Factories()
    {
        game.registerPrototypes();
        plain.registerPrototypes();
        plain.setFallbackFactory(&game);
    }
    GameBodyFactory game;
    BodyFactory plain;
};
}

bool runLevelTool(int argc, char** argv, int& status)
{
    if (argc < 2 || (std::strcmp(argv[1], "--check-level") != 0 && std::strcmp(argv[1], "--tiled-project") != 0))
        return false;
    const std::string tool = argv[1];
    // Our report goes to the real standard output; the resource manager's
    // chatter about what it found goes nowhere.
    std::fflush(stdout);
    std::FILE* report = fdopen(dup(fileno(stdout)), "w");
    if (!report)
        report = stdout;
    else if (!std::freopen("/dev/null", "w", stdout))
        std::fprintf(stderr, "the resource manager's messages will mix with the report\n");
    const std::string started = currentDirectory();
    std::vector<std::string> arguments(argv + 2, argv + argc);

    // Media and levels are looked up in the game's data, wherever the tool
    // was started from; the resource manager opens data.zip on first use.
    const GameDirectories directories = GameDirectories::forThisProcess();
    if (chdir(directories.getDataDir().c_str()) != 0)
        std::fprintf(stderr, "cannot enter the game directory %s\n", directories.getDataDir().c_str());
    ResourceManager::instance();

    Factories factories;
    const LevelSchema schema(factories.plain);

    if (tool == "--check-level") {
        if (arguments.empty()) {
            std::fprintf(stderr, "usage: brindlequay --check-level FILE...\n");
            status = 2;
            return true;
        }
        LevelChecker checker(schema);
        status = checker.run(arguments, report, started);
        std::fflush(report);
        return true;
    }

    if (arguments.size() != 1) {
        std::fprintf(stderr, "usage: brindlequay --tiled-project DIR\n");
        status = 2;
        return true;
    }
    std::string error;
    const std::string dataDir = absolute(directories.getDataDir(), started);
    if (!TiledProject::write(schema, absolute(arguments[0], started), dataDir + "/tiled/extensions",
                             dataDir + "/maps", error)) {
        std::fprintf(stderr, "%s\n", error.c_str());
        status = 1;
        return true;
    }
    std::fprintf(report, "Wrote the Tiled project to %s\n", arguments[0].c_str());
    std::fflush(report);
    status = 0;
    return true;
}
