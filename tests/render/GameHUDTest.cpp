#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "gameplay/WeaponsFixture.h"
#include "render/FixedWidthFonts.h"
#include "render/ImageHudItem.h"
#include "render/TextHudItem.h"
#include "render/UpgradeLevelText.h"

class GameHUDTest : public WeaponsFixture {
protected:
    GameHUD& hud() { return gameplay->getHud(); }
};

// At every window size and interface scale players use: items keep their
// proportions and corners, and every glyph stays inside the window and the
// panel its item belongs to. The message line shares its height with the
// status column (health, armour, swarm): a long message wraps beside the
// column, never over it.
TEST_F(GameHUDTest, UpgradeScreenAndItemsKeepTheirProportionsAndTextStaysInside)
{
    NullRenderer renderer;
    auto* fonts = new FixedWidthFonts();
    renderer.setFontRenderer(fonts);
    fonts->setRenderer(&renderer);
    run("give grenadelauncher");
    run("useitem grenadelauncher");
    // The upgrade screen counts levels from 0 and dims what the cash cannot reach.
    EXPECT_FALSE(hud().upgradePanel->visible);
    ASSERT_EQ(player->properties.currentLevel, 0);
    run("+showupgrades");
    EXPECT_EQ(hud().upgradeCurrentLevel->text, "Current Level : 0");
    run("-showupgrades");
    EXPECT_FALSE(hud().upgradePanel->visible);
    player->giveCash(80);
    run("+showupgrades");
    EXPECT_TRUE(hud().upgradePanel->visible);
    EXPECT_EQ(hud().upgradeCurrentLevel->text, "Current Level : 2");
    EXPECT_EQ(hud().upgradeCash->text, "Current Cash : 80");
    EXPECT_EQ(hud().upgradeUntilNext->text, "Cash Until Next Level : 20");
    ASSERT_EQ(hud().upgradeRows.size(), 12u);
    EXPECT_EQ(hud().upgradeRows[1]->colour.r, 255.0f);
    EXPECT_EQ(hud().upgradeRows[2]->colour.r, 100.0f);
    frame();
    auto glyphSpan = [&](HudItem& item) {
        fonts->glyphs.clear();
        item.draw(renderer);
        std::pair<float, float> span{1e9f, 0.0f};
        for (const auto& g : fonts->glyphs) {
            span.first = std::min(span.first, g.left);
            span.second = std::max(span.second, g.right);
        }
        return span;
    };
    struct Case {
        int w, h;
        float uiScale;
    };
    const Case cases[] = {{640, 480, 1.0f},  {1024, 768, 1.0f}, {1920, 1080, 1.0f}, {2560, 1080, 1.0f},
                          {640, 480, 2.0f},  {1920, 1080, 2.0f}, {800, 600, 1.5f},  {1024, 768, 1.5f},
                          {1280, 960, 1.0f}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.w) + "x" + std::to_string(c.h) + " at " + std::to_string(c.uiScale));
        renderer.setVideoMode(c.w, c.h, false);
        hud().interfaceScale = c.uiScale;
        hud().resize(c.w, c.h);
        const float scale = std::min(c.w / 640.0f, c.h / 480.0f) * c.uiScale;
        for (const auto& item : hud().getItems()) {
            if (c.w * 3 == c.h * 4 && c.uiScale == 1.0f) {
                // 4:3 at normal size is the plain design scaled up.
                EXPECT_NEAR(item->pixelX, item->x * c.w / 640.0, 1.0);
                EXPECT_NEAR(item->pixelY, item->y * c.h / 480.0, 1.0);
            }
            // No stretching: both sides grow alike.
            EXPECT_NEAR(item->pixelHeight * item->width, item->pixelWidth * item->height,
                        std::max(item->width, item->height));
            EXPECT_GE(item->pixelX, 0);
            EXPECT_LE(item->pixelX + item->pixelWidth, c.w);
            EXPECT_LE(item->pixelY, c.h);
            EXPECT_GE(item->pixelY - item->pixelHeight, 0);
        }
        EXPECT_EQ(hud().weaponIcon->pixelWidth, std::lround(48 * scale));
        EXPECT_FLOAT_EQ(hud().healthValue->scale, scale);
        // The panels keep to their corners and never meet.
        EXPECT_EQ(hud().healthValue->pixelX, std::lround(39 * scale));
        EXPECT_EQ(hud().weaponIcon->pixelX + std::lround(136 * scale), c.w);
        EXPECT_LT(hud().healthValue->pixelX + 100 * scale, hud().weaponIcon->pixelX);
        // The strip stays clear of both panels or drops below the weapon panel.
        const HudItem& first = *hud().stripIcons[0];
        const HudItem& last = *hud().stripIcons[9];
        const bool beside = first.pixelX >= std::lround(125 * scale) &&
                            last.pixelX + last.pixelWidth <= hud().weaponIcon->pixelX;
        if (!beside) {
            EXPECT_LE(first.pixelY, hud().ammoValue->pixelY);
        }
        // Short, a line that only fits from the far left, and two that wrap.
        for (const std::string& message :
             {std::string("Upgraded to Level 1 : Max Health +10"),
              std::string("The old maintenance swarm wakes; its nest over the pit sends more"),
              std::string("Too high to jump: stand under the beam, hold MOUSE2 to hook it, let go and steer on "
                          "to the loft"),
              std::string("Welcome to the logic yard: every switch, door, pad and hazard a level is built from, "
                          "one after the other, with a spawner at the end")}) {
            hud().showMessage(message);
            hud().showMessageAt(600, 300, message);
            frame();
            fonts->glyphs.clear();
            hud().draw(&renderer, 0.01f);
            ASSERT_FALSE(fonts->glyphs.empty());
            for (const auto& g : fonts->glyphs) {
                EXPECT_GE(g.left, 0.0f);
                EXPECT_LE(g.right, static_cast<float>(c.w));
                EXPECT_GE(g.bottom, 0.0f);
            }
            // Nothing is cut: the message's characters are all drawn (twice, shadowed).
            const size_t letters = message.size() - static_cast<size_t>(std::count(message.begin(), message.end(), ' '));
            EXPECT_GE(fonts->glyphs.size(), 4 * letters);
            EXPECT_GE(glyphSpan(*hud().messageLine).first, std::round(125.0f * scale)) << message;
        }
        // The weapon name inside the weapon panel, the upgrade texts inside theirs.
        EXPECT_EQ(hud().weaponName->text, "Grenade Launcher");
        EXPECT_LE(glyphSpan(*hud().weaponName).second, 636.0f * c.w / 640.0f);
        const HudItem& panel = *hud().upgradePanel;
        for (TextHudItem* row : hud().upgradeRows)
            EXPECT_LE(glyphSpan(*row).second, panel.pixelX + panel.pixelWidth) << row->text;
    }
}

TEST_F(GameHUDTest, PanelsShowThePlayer)
{
    player->health = 77;
    player->armour = 12;
    frame();
    EXPECT_EQ(hud().healthValue->text, "77");
    EXPECT_EQ(hud().armourValue->text, "12");
    EXPECT_EQ(hud().weaponName->text, "Pistol");
    EXPECT_EQ(hud().ammoValue->text, "INF");
    EXPECT_EQ(hud().weaponIcon->image, "data/images/pistol.png");
    EXPECT_EQ(hud().swarmValue->text, "Ready!");
    EXPECT_FALSE(hud().quadIcon->visible);
    run("give quad");
    frame();
    EXPECT_TRUE(hud().quadIcon->visible);
    EXPECT_EQ(hud().quadValue->text, "29");
    run("give shotgun");
    run("give shotgunammo 7");
    run("useitem shotgun");
    frame();
    EXPECT_EQ(hud().ammoValue->text, "7");
    EXPECT_TRUE(hud().isWeaponStripVisible());
    EXPECT_EQ(hud().stripIcons[3]->colour.a, 255.0f);
    EXPECT_EQ(hud().stripIcons[4]->colour.a, 100.0f);

    // Health below zero and absurd power-up times still show sensible numbers.
    player->health = -35;
    player->quadtime = 3.0e35f;
    player->hasinvinc = true;
    player->invinctime = -3.0e35f;
    frame();
    EXPECT_EQ(hud().healthValue->text, "0");
    const int quadSeconds = std::stoi(hud().quadValue->text);
    EXPECT_GE(quadSeconds, 0);
    EXPECT_LE(quadSeconds, 1000000);
    EXPECT_EQ(hud().invincibilityValue->text, "0");
}

TEST_F(GameHUDTest, MessagesExpire)
{
    hud().showMessage("Hello");
    frame();
    EXPECT_TRUE(hud().messageLine->visible);
    frames(82);
    EXPECT_FALSE(hud().messageLine->visible);
    EXPECT_EQ(hud().lastMessage(), "");
    hud().showMessageAt(100, 200, "There");
    frames(190);
    EXPECT_TRUE(hud().positionedMessage->visible);
    frames(20);
    EXPECT_FALSE(hud().positionedMessage->visible);
}

TEST_F(GameHUDTest, LowHealthFlashThresholds)
{
    player->health = 56;
    EXPECT_FALSE(hud().lowHealthFlashActive());
    player->health = 55;
    EXPECT_TRUE(hud().lowHealthFlashActive());
    NullRenderer renderer;
    hud().drawLowHealthFlash(renderer, 0.01f);
    EXPECT_FLOAT_EQ(hud().getFlashCycler().speed, 150.0f);
    player->health = 35;
    hud().drawLowHealthFlash(renderer, 0.01f);
    EXPECT_FLOAT_EQ(hud().getFlashCycler().speed, 512.0f);
    player->dead = true;
    EXPECT_FALSE(hud().lowHealthFlashActive());
}

TEST_F(GameHUDTest, SlowWeaponsShowTheirCooldown)
{
    struct Case {
        const char* weapon;
        bool shows;
    };
    for (const Case& c : {Case{"railgun", true}, Case{"rocketlauncher", true}, Case{"swarm", true},
                          Case{"pistol", false}}) {
        SCOPED_TRACE(c.weapon);
        run(std::string("give ") + c.weapon);
        run(std::string("useitem ") + c.weapon);
        frames(20);
        FireableWeapon* weapon = player->inventory.current();
        ASSERT_NE(weapon, nullptr);
        EXPECT_FALSE(hud().cooldownValue->visible);
        weapon->nextFireTime = levelTime() + weapon->delay;
        frame();
        EXPECT_EQ(hud().cooldownValue->visible, c.shows);
        if (c.shows) {
            const float shown = std::stof(hud().cooldownValue->text);
            EXPECT_GT(shown, 0.0f);
            EXPECT_LE(shown, weapon->delay / 1000.0f);
        }
        weapon->nextFireTime = levelTime() - 1.0f;
        frame();
        EXPECT_FALSE(hud().cooldownValue->visible);
    }
}
