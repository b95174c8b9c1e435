#include "gameplay/enemies/HardDrive.h"

#include <cstdio>

#include "gameplay/enemies/EnemyEffects.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

HardDrive::HardDrive()
{
    type = "harddrive";
    health = initialhealth = maxhealth = 100;
    dropsCash = false;
    vel = Vector();
    setImage("data/images/harddrive.png");
}

std::unique_ptr<Body> HardDrive::clone() const { return std::make_unique<HardDrive>(); }

void HardDrive::think(float dt)
{
    EnemyBase::think(dt);
    // An objective stays where the level put it.
    vel = Vector();
}

void HardDrive::deathEffects()
{
    std::printf("Objective %s destroyed\n", id.c_str());
    EnemyEffects::explosion(pos);
    EnemyEffects::cashRollOnly(*this);
}

std::string HardDrive::healthText() const { return std::to_string(health) + "/" + std::to_string(initialhealth); }

void HardDrive::drawExtras(IRenderer& renderer)
{
    EnemyBase::drawExtras(renderer);
    FontRenderer* fonts = renderer.getFontRenderer();
    if (!fonts)
        return;
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    fonts->drawText(bounds->minX, bounds->maxY, pos.z + 0.2f, healthText());
}
