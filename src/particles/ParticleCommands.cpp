#include "particles/ParticleCommands.h"

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "particles/TextParticleSystem.h"
#include "world/geometry/TextForm.h"

namespace {
bool isBeam(const std::string& name)
{
    return name == "rail" || name == "tracer" || name == "lightning" || name == "plasma";
}
}

ParticleSystem* ParticleCommands::startAt(ParticleManager& manager, const std::string& name, const Vector& from,
                                          const Vector& to)
{
    ParticleSystem* system = manager.createSystem(name);
    if (!system)
        return nullptr;
    if (isBeam(name)) {
        system->setEndpoints(from, to);
        system->emitAlongSegment();
    } else if (auto* text = dynamic_cast<TextParticleSystem*>(system)) {
        text->text = "Sample text";
        text->setEndpoints(to, to);
        text->emitAlongSegment();
    } else {
        system->setEndpoints(to, to);
        system->emitInitial();
    }
    return system;
}

void ParticleCommands::registerAll(Game& game)
{
    registerCommand("start a particle effect at the mouse: spawnparticle <name> [x y [beam start x y]]",
                    "spawnparticle", [&game] {
        const CommandRegistry& registry = CommandRegistry::instance();
        ParticleManager* manager = game.getParticleManager();
        if (!manager)
            return;
        if (registry.argumentCount < 1) {
            conPrint("usage: spawnparticle <name> [x y [fromx fromy]]; listparticles shows the names");
            return;
        }
        const std::string& name = registry.arguments[0];
        // Beams run from the player to the mouse; other effects start at
        // the mouse, or at the player when there is no aim.
        Vector from, to;
        if (Body* player = game.getPlayer()) {
            from = player->pos;
            to = player->pos;
            if (auto* p = dynamic_cast<Player*>(player))
                to.set(p->mouseWorldPos.x, p->mouseWorldPos.y, player->pos.z);
        }
        if (registry.argumentCount >= 3)
            to.set(parseFloat(registry.arguments[1]), parseFloat(registry.arguments[2]), to.z);
        if (registry.argumentCount >= 5)
            from.set(parseFloat(registry.arguments[3]), parseFloat(registry.arguments[4]), from.z);
        from.z += 0.2f;
        to.z += 0.2f;
        if (!manager->findDefinition(name))
            conWarning("No particle definition " + name + "; showing default");
        startAt(*manager, name, from, to);
    });
    registerCommand("list the particle effect definitions", "listparticles", [&game] {
        if (ParticleManager* manager = game.getParticleManager())
            for (const auto& entry : manager->getDefinitions())
                conPrint(entry.first);
    });
    registerCommand("reload data/particles/particles.xml (removes live effects)", "reloadparticles", [&game] {
        if (ParticleManager* manager = game.getParticleManager()) {
            if (manager->loadDefinitions("data/particles/particles.xml"))
                conPrint("Reloaded " + std::to_string(manager->getDefinitions().size()) + " particle definitions");
            else
                conWarning("Could not load data/particles/particles.xml");
        }
    });
}
