#include "gameplay/enemies/EggLayer.h"

#include <cmath>

#include "gameplay/player/Player.h"
#include "gameplay/weapons/FireableWeapon.h"

EggLayer::EggLayer()
{
    type = "egglayer";
    spawntype = "egg";
    setImage("data/images/egglayerenemy1.png");
}

std::unique_ptr<Body> EggLayer::clone() const { return std::make_unique<EggLayer>(); }

void EggLayer::readAttributes(const std::map<std::string, std::string>& attrs)
{
    SpawnerGrunt::readAttributes(attrs);
    spawntype = "egg";
}

void EggLayer::launch(Body& body)
{
    Player* player = targetPlayer();
    if (player) {
        const Vector d = player->pos - body.pos;
        const float dist = (player->pos - pos).length2D();
        if (dist < nearRange && d.length2D() > 0.0f && canSee(false)) {
            body.vel = d * (throwSpeed / d.length2D());
            return;
        }
    }
    const float angle = FireableWeapon::uniform(0.0f, 6.2831853f);
    body.vel = Vector(std::cos(angle), std::sin(angle)) * dropSpeed;
}
