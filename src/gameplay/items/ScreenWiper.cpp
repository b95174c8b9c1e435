#include "gameplay/items/ScreenWiper.h"

#include <vector>

#include "core/Game.h"
#include "gameplay/player/Player.h"
#include "world/quadtree/QuadTree.h"

ScreenWiper::ScreenWiper()
{
    type = "screenwiper";
    respawnDelay = 5000.0f;
}

std::unique_ptr<Body> ScreenWiper::clone() const { return std::make_unique<ScreenWiper>(); }

bool ScreenWiper::giveTo(Player&)
{
    Game* game = Game::current();
    if (game) {
        std::vector<Body*> near;
        game->getQuadTree().withinRadius(pos, wipeRadius, near);
        for (Body* body : near) {
            auto* victim = dynamic_cast<GameBody*>(body);
            if (victim && victim->takedamage && victim->isEnemy())
                victim->takeDamage(wipeDamage, -1);
        }
    }
    announce(25, "SCREENWIPE");
    return true;
}
