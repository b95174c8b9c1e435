#include "gameplay/weapons/SwarmWeapon.h"

#include <cmath>

#include "core/Game.h"
#include "gameplay/IGameplay.h"
#include "gameplay/enemies/SwarmMember.h"
#include "gameplay/player/Player.h"

SwarmWeapon::SwarmWeapon() { delay = 25000.0f; }

int SwarmWeapon::memberCount(Body* owner)
{
    auto* player = dynamic_cast<Player*>(owner);
    if (!player)
        return 4;
    switch (player->properties.swarmLevel) {
    case 1:
    case 2: return 3;
    case 3: return 4;
    case 5: return 5;
    default: return 4;
    }
}

bool SwarmWeapon::fire(Body* owner, const Vector& position, const Vector& aim, float time)
{
    Game* game = Game::current();
    if (!game || !beginShot(time))
        return false;
    const int n = memberCount(owner);
    const float out = owner ? owner->radius : 0.0f;
    IGameplay* gameplay = game->getGameplay();
    for (int i = 1; i <= n && gameplay; ++i) {
        Body* member = gameplay->createBody("swarmmember");
        if (!member)
            break;
        member->makeRectangle(16.0f, 16.0f);
        member->setPosition(position + aim * (static_cast<float>(i) * 18.0f + out));
        const float angle = uniform(0.0f, 6.2831853f);
        member->vel = Vector(std::cos(angle), std::sin(angle)) * uniform(0.0f, 400.0f);
        if (auto* g = dynamic_cast<GameBody*>(member))
            g->setPlayerSide(owner && dynamic_cast<Player*>(owner));
        if (auto* swarm = dynamic_cast<SwarmMember*>(member))
            swarm->startLife();
        game->spawnBody(member);
    }
    playShotSound(1, position);
    // The burst's red comes from its definition.
    effect("swarmburst", raised(position, 0.1f));
    for (int i = 0; i < 4; ++i)
        effect("swarmburst", raised(position + Vector(uniform(-128.0f, 128.0f), uniform(-128.0f, 128.0f)), 0.1f));
    return true;
}
