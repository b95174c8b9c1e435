// The message line shares its height with the status column (health, armour,
// swarm): a message too long for the right-hand side wraps beside the
// column, never over it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "gameplay/WeaponsFixture.h"
#include "render/FixedWidthFonts.h"
#include "render/TextHudItem.h"

class HudMessageColumnTest : public WeaponsFixture {
protected:
    GameHUD& hud() { return gameplay->getHud(); }
};

TEST_F(HudMessageColumnTest, LongMessagesKeepClearOfTheStatusColumn)
{
    NullRenderer renderer;
    auto* fonts = new FixedWidthFonts();
    renderer.setFontRenderer(fonts);
    fonts->setRenderer(&renderer);
    struct Case {
        int w, h;
        float uiScale;
    };
    for (const Case& c : {Case{640, 480, 1.0f}, Case{1024, 768, 1.0f}, Case{1920, 1080, 1.0f},
                          Case{1024, 768, 1.5f}}) {
        SCOPED_TRACE(std::to_string(c.w) + "x" + std::to_string(c.h) + " at " + std::to_string(c.uiScale));
        renderer.setVideoMode(c.w, c.h, false);
        hud().interfaceScale = c.uiScale;
        hud().resize(c.w, c.h);
        const float column = std::round(125.0f * std::min(c.w / 640.0f, c.h / 480.0f) * c.uiScale);
        // Short, a line that only fits from the far left, and one that wraps.
        for (const std::string& message :
             {std::string("Hook the beam: MOUSE2"),
              std::string("The old maintenance swarm wakes; its nest over the pit sends more"),
              std::string("Too high to jump: stand under the beam, hold MOUSE2 to hook it, let go and steer on "
                          "to the loft")}) {
            hud().showMessage(message);
            frame();
            hud().draw(&renderer, 0.01f);
            fonts->glyphs.clear();
            hud().messageLine->draw(renderer);
            ASSERT_FALSE(fonts->glyphs.empty()) << message;
            float left = static_cast<float>(c.w), right = 0.0f;
            for (const auto& g : fonts->glyphs) {
                left = std::min(left, g.left);
                right = std::max(right, g.right);
            }
            EXPECT_GE(left, column) << message;
            EXPECT_LE(right, static_cast<float>(c.w)) << message;
        }
    }
}
