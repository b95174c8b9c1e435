#include "menus/BouncingSmileys.h"

#include <algorithm>
#include <cmath>

#include "core/Game.h"
#include "render/IRenderer.h"

namespace {
constexpr float maxFrameSeconds = 0.1f;
constexpr float minSpeed = 40.0f;
constexpr float maxSpeed = 110.0f;
constexpr float pi = 3.14159265f;
}

const std::vector<std::string>& BouncingSmileys::images()
{
    static const std::vector<std::string> all = {
        "data/images/debugsmiley.png",   "data/images/rocketenemy1.png", "data/images/shotgunenemy1.png",
        "data/images/meleeenemy1.png",   "data/images/sniperenemy1.png", "data/images/plasmaenemy1.png"};
    return all;
}

BouncingSmileys::BouncingSmileys(unsigned seed) : random(seed)
{
    setName("smileys");
    for (const std::string& image : images()) {
        GUISmiley s;
        s.image = image;
        sprites.push_back(s);
    }
}

void BouncingSmileys::scatter()
{
    std::uniform_real_distribution<float> unit(0.0f, 1.0f);
    for (GUISmiley& s : sprites) {
        s.size = 40.0f + 24.0f * unit(random);
        s.x = x + s.size + (width - 2.0f * s.size) * unit(random);
        s.y = y - height + s.size + (height - 2.0f * s.size) * unit(random);
        const float angle = 2.0f * pi * unit(random);
        const float speed = minSpeed + (maxSpeed - minSpeed) * unit(random);
        s.vx = speed * std::cos(angle);
        s.vy = speed * std::sin(angle);
    }
    scattered = true;
}

void BouncingSmileys::update(float w, float h)
{
    setBounds(0.0f, h, w, h);
    if (!scattered)
        scatter();
    step(0.0f);
    GUIComponent::update(w, h);
}

void BouncingSmileys::step(float dt)
{
    for (GUISmiley& s : sprites)
        s.step(dt, x, y - height, x + width, y);
}

GUIComponent* BouncingSmileys::componentAt(float, float) { return nullptr; }

void BouncingSmileys::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    if (Game* game = Game::current())
        step(std::min(maxFrameSeconds, std::max(0.0f, game->getTimer().frameTime())));
    for (const GUISmiley& s : sprites) {
        const float glow = s.size * 2.2f;
        renderer.setColour(120.0f, 190.0f, 255.0f, 150.0f);
        renderer.drawImage(s.x - glow / 2.0f, s.y + glow / 2.0f, 0.0f, glow, glow, glowImage, true, true);
        renderer.setAlphaBlend();
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        renderer.drawImage(s.x - s.size / 2.0f, s.y + s.size / 2.0f, 0.0f, s.size, s.size, s.image, false, true);
    }
    drawChildren(renderer);
}
