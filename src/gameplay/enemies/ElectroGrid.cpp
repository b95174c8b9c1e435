#include "gameplay/enemies/ElectroGrid.h"

#include <tinyxml.h>

#include <cmath>

#include "core/Game.h"
#include "gameplay/enemies/EnemyEffects.h"
#include "render/IRenderer.h"
#include "world/level/LevelValues.h"

namespace {
constexpr int onSound = 38;
constexpr int offSound = 39;
const RGBAColour liveColour(255.0f, 222.0f, 0.0f, 255.0f);
const RGBAColour fatalColour(255.0f, 0.0f, 0.0f, 255.0f);
const RGBAColour outlineLive(255.0f, 255.0f, 0.0f, 255.0f);
}

ElectroGrid::ElectroGrid()
{
    type = "electrogrid";
    thinks = true;
    thinkInterval = 200.0f;
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> ElectroGrid::clone() const { return std::make_unique<ElectroGrid>(); }

void ElectroGrid::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "on"))
            on = readBool(value);
        else if (sameName(name, "pain"))
            pain = readInt(value);
        else if (sameName(name, "timeon"))
            timeOn = readFloat(value);
        else if (sameName(name, "timeoff"))
            timeOff = readFloat(value);
        else if (sameName(name, "fatal"))
            fatal = readBool(value);
    }
    // Nonsense times hold the phase, as 0 does.
    if (!std::isfinite(timeOn) || timeOn < 0.0f)
        timeOn = 0.0f;
    if (!std::isfinite(timeOff) || timeOff < 0.0f)
        timeOff = 0.0f;
    showPhase();
}

void ElectroGrid::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    on = readBool(attributeText(element, "on"));
    wasTriggered = readBool(attributeText(element, "wastriggered"));
    switchTime = readFloat(attributeText(element, "inverttime"));
    showPhase();
}

void ElectroGrid::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("on", writeBool(on));
    element->SetAttribute("wastriggered", writeBool(wasTriggered));
    element->SetAttribute("inverttime", writeFloat(switchTime));
}

void ElectroGrid::showPhase()
{
    visible = on;
    for (RGBAColour& colour : colours)
        colour = fatal ? fatalColour : liveColour;
}

void ElectroGrid::playNearPlayer(int soundId) const
{
    Game* game = Game::current();
    const Body* player = game ? game->getPlayer() : nullptr;
    if (player && pos.distance2D(player->pos) < hearingRange)
        EnemyEffects::sound(soundId, pos);
}

void ElectroGrid::think(float dt)
{
    GameBody::think(dt);
    const float t = now();
    if (switchTime >= t)
        return;
    if (on && timeOff > 0.0f) {
        on = false;
        switchTime = t + timeOff;
        playNearPlayer(offSound);
    } else if (!on && timeOn > 0.0f) {
        on = true;
        switchTime = t + timeOn;
        playNearPlayer(onSound);
    }
    showPhase();
    wasTriggered = false;
}

void ElectroGrid::onTriggered(GameBody*)
{
    if (wasTriggered)
        return;
    switchTime = now() + (on ? timeOn : timeOff);
    wasTriggered = true;
}

void ElectroGrid::onTouch(TouchInfo& info)
{
    GameBody::onTouch(info);
    if (!on)
        return;
    auto* victim = dynamic_cast<GameBody*>(info.other);
    Game* game = Game::current();
    if (!victim || !game || (victim != game->getPlayer() && victim->type != "swarmmember"))
        return;
    EnemyEffects::shock(*victim, fatal ? fatalDamage : pain, victim->pos);
}

void ElectroGrid::drawExtras(IRenderer& renderer)
{
    GameBody::drawExtras(renderer);
    if (worldVertices.size() < 2)
        return;
    renderer.setTexturing(false);
    renderer.setColour(fatal ? fatalColour : outlineLive);
    const size_t n = worldVertices.size();
    for (size_t i = 0; i < n; ++i) {
        const Vector& a = worldVertices[i];
        const Vector& b = worldVertices[(i + 1) % n];
        renderer.drawLine(a.x, a.y, b.x, b.y, 1.0f);
    }
}
