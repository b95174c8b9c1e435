#include "world/logic/Switch.h"

#include "core/Game.h"
#include "sound/ISound.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int switchSound = 33;
}

Switch::Switch() { type = "switch"; }

std::unique_ptr<Body> Switch::clone() const { return std::make_unique<Switch>(); }

void Switch::readAttributes(const std::map<std::string, std::string>& attrs)
{
    TriggerBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "untriggeredimage")) {
            untriggeredImage = value;
            setTexture(value);
        } else if (sameName(name, "triggeredimage")) {
            triggeredImage = value;
        }
    }
}

void Switch::onTouch(TouchInfo& info)
{
    if (triggered || !touchedByPlayer(info))
        return;
    activate();
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(switchSound, renderpos, 0);
    triggerTargets();
    if (!triggeredImage.empty())
        setTexture(triggeredImage);
}

void Switch::think(float dt)
{
    GameBody::think(dt);
    if (triggerThink() && !untriggeredImage.empty()) {
        setTexture(untriggeredImage);
        textureId = -1;
    }
}
