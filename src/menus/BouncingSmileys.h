#pragma once
// The main menu's backdrop decoration: the player and a few enemy sprites
// drifting and bouncing off the window's edges, each with a soft glow.
#include <random>
#include <string>
#include <vector>

#include "gui/GUIComponent.h"
#include "menus/GUISmiley.h"

class BouncingSmileys : public GUIComponent {
public:
    static constexpr const char* glowImage = "data/particles/brightpart.tga";
    // The sprites, in order; the first is the player.
    static const std::vector<std::string>& images();

    // The seed makes the starting places and speeds repeatable.
    explicit BouncingSmileys(unsigned seed = 7);

    // Covers the window; sprites outside it come back in.
    void update(float w, float h) override;
    // Moves the sprites by the game's frame time, then draws them.
    void draw(IRenderer& renderer) override;
    // Decoration only: clicks go through to what lies behind.
    GUIComponent* componentAt(float px, float py) override;

    void step(float dt);
    const std::vector<GUISmiley>& getSprites() const { return sprites; }

private:
    void scatter();

    std::mt19937 random;
    std::vector<GUISmiley> sprites;
    bool scattered = false;
};
