// demobot: records demos by following routes through levels, headless and
// as fast as the machine runs. Run from the game directory (beside data/,
// maps/ and demos/); each route goes on with the player the one before it
// left, the first with a new player:
//   demobot ../../tools/demos/routes/quay.route ../../tools/demos/routes/armoury.route
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "DemoBot.h"
#include "Route.h"
#include "console/CommandRegistry.h"
#include "console/VariableRegistry.h"
#include "core/Clock.h"
#include "core/DemoManager.h"
#include "core/Game.h"
#include "core/ManualClock.h"
#include "gameplay/player/Player.h"
#include "particles/ParticleManager.h"
#include "render/NullRenderer.h"
#include "sound/NullSound.h"

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: demobot <route> [<route> ...]  (from the game directory)\n");
        return 2;
    }
    ManualClock clock{10000};
    Clock::install(&clock);
    CommandRegistry::instance().registerCommands();
    VariableRegistry::instance().registerCommands();
    if (!VariableRegistry::instance().loadVariables("data/gamevars.xml")) {
        std::fprintf(stderr, "demobot: no data/gamevars.xml here; run it from the game directory\n");
        return 2;
    }
    auto game = std::make_unique<Game>(std::make_unique<NullRenderer>(), std::make_unique<NullSound>());
    game->getTimer().start();
    game->startGameplay();
    game->clearGravityOverride();
    game->getParticleManager()->loadDefinitions("data/particles/particles.xml");
    game->getDemos()->registerCommands();

    DemoBot bot(*game);
    std::optional<Demo::PlayerState> carried;
    int failures = 0;
    for (int i = 1; i < argc; ++i) {
        Route route;
        std::string error;
        if (!route.load(argv[i], error)) {
            std::fprintf(stderr, "demobot: %s: %s\n", argv[i], error.c_str());
            return 2;
        }
        const auto started = std::chrono::steady_clock::now();
        std::string report;
        const bool done = bot.record(route, carried ? &*carried : nullptr, report);
        const double wall =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
        std::printf("demobot: %s: %s (%u steps, %.1f s of play, %.2f s to record)\n", argv[i], report.c_str(),
                    game->getDemos()->currentStep(), game->getDemos()->currentStep() * 0.025, wall);
        if (!done) {
            ++failures;
            break;
        }
        if (auto* player = dynamic_cast<Player*>(game->getPlayer())) {
            carried = DemoManager::playerState(*player);
            std::printf("demobot: the player leaves with %s\n", carried->text().c_str());
        }
    }
    game.reset();
    Clock::install(nullptr);
    return failures ? 1 : 0;
}
