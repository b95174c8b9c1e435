#include "world/logic/MessengerBody.h"

#include "core/Game.h"
#include "gameplay/GameplaySingleton.h"
#include "input/BindingText.h"
#include "render/GameHUD.h"
#include "world/level/LevelValues.h"

MessengerBody::MessengerBody() { type = "messengerbody"; }

std::unique_ptr<Body> MessengerBody::clone() const { return std::make_unique<MessengerBody>(); }

void MessengerBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    TriggerBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs)
        if (sameName(name, "message"))
            message = value;
}

void MessengerBody::onTriggered(GameBody*)
{
    activate();
    showOnHud(message);
}

void MessengerBody::showOnHud(const std::string& text)
{
    if (GameHUD* hud = GameplaySingleton::get().hud) {
        const Game* game = Game::current();
        hud->showMessage(BindingText::expand(text, game ? game->getGameInput() : nullptr));
    }
}
