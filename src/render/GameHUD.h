#pragma once
// The game's heads-up display: a status panel (health, armour, swarm and
// power-up timers, race time), a weapon panel (icon, name, ammunition), the
// weapon selection strip, a timed message line and a positioned message, the
// pulsing red flash at low health, short screen flashes for blasts and gore,
// and the upgrade screen. It reads the player every step and owns nothing
// but its items and timers. Design size 640 x 480, scaled to the window.
#include <array>
#include <string>
#include <vector>

#include "render/Hud.h"
#include "world/geometry/ColourCycler.h"
#include "world/geometry/RGBAColour.h"

class GameVar;
class IRenderer;
class ImageHudItem;
class Player;
class TextHudItem;
class UpgradeLevelText;

class GameHUD : public Hud {
public:
    struct Message {
        std::string text;
        int size = 14;
        float expiresAt = 0.0f;  // level time, ms
    };

    static constexpr float messageMs = 2000.0f;
    static constexpr float positionedMessageMs = 5000.0f;
    static constexpr float weaponStripMs = 2000.0f;
    static constexpr float flashSeconds = 0.5f;
    // Weapons at least this slow between shots show their cooldown.
    static constexpr float slowWeaponMs = 900.0f;

    GameHUD();
    ~GameHUD() override;

    // Once, when the controller starts: builds the items.
    virtual void init();
    // The player to show; null while no level runs.
    virtual void setPlayer(Player* p) { player = p; }
    Player* getPlayer() const { return player; }
    // Every simulation step: reads the player, expires messages.
    virtual void update(float stepTime);
    void update(Player* p) override;
    // Every frame: low-health flash, screen flash, upgrade dimming, items.
    virtual void draw(IRenderer* renderer, float frameTime);
    using Hud::draw;

    virtual void createItems();
    virtual void createWeaponStrip();
    virtual void updateWeaponStrip();
    virtual void clearMessages();
    // The message line, shown for two seconds.
    virtual void showMessage(const std::string& text, int size = 18);
    // The line shown when something is picked up.
    virtual void pickupMessage(const std::string& text) { showMessage(text, 14); }
    // The selection strip for the current weapon, for two seconds.
    virtual void showWeaponStrip();
    virtual void setWeaponStripVisible(bool on);
    virtual void setWeaponIcon(const std::string& itemName);
    // A message at design position (px, py) for five seconds.
    virtual void showMessageAt(int px, int py, const std::string& text);
    // Re-reads the player now (also done every step).
    virtual void refresh();
    virtual void setUpgradeScreen(bool on);
    virtual void dimUnaffordableUpgrades();
    virtual void drawLowHealthFlash(IRenderer& renderer, float frameTime);
    virtual void createUpgradeScreen();
    virtual void updateUpgradeScreen();
    // A full-screen flash of `colour` fading out over half a second.
    virtual void flashScreen(const RGBAColour& colour);
    // A level starts: nothing carries over.
    virtual void levelReset();
    // The weapon strip shrinks to fit between the panels, or drops below
    // them when a large interface leaves no room beside them; the upgrade
    // screen shrinks to fit the window.
    float scaleFor(const HudItem& item) const override;
    void scaleItem(HudItem& item, int px, int py) override;
    // Follows `uiscale` and `hudcontrast` as they change.
    void applyOptions();

    const std::vector<Message>& getMessages() const { return messages; }
    // The most recent message still showing, "" when none.
    std::string lastMessage() const { return messages.empty() ? std::string() : messages.back().text; }
    bool isUpgradeScreenVisible() const { return upgradeScreenVisible; }
    bool isWeaponStripVisible() const;
    // Whether the low-health flash draws this frame, and its cycler.
    bool lowHealthFlashActive() const;
    // How strong flashes are drawn under `flashes`: 0, a fraction, or 1.
    float flashShare() const;
    const ColourCycler& getFlashCycler() const { return flashCycler; }

    // Items, for tests and layout checks.
    TextHudItem* healthValue = nullptr;
    TextHudItem* armourValue = nullptr;
    TextHudItem* swarmValue = nullptr;
    ImageHudItem* quadIcon = nullptr;
    TextHudItem* quadValue = nullptr;
    ImageHudItem* invincibilityIcon = nullptr;
    TextHudItem* invincibilityValue = nullptr;
    ImageHudItem* raceIcon = nullptr;
    TextHudItem* raceValue = nullptr;
    ImageHudItem* weaponIcon = nullptr;
    // The right end of the status column (health, armour, swarm): long
    // messages keep clear of it.
    ImageHudItem* statusColumnEnd = nullptr;
    TextHudItem* weaponName = nullptr;
    TextHudItem* ammoValue = nullptr;
    // Seconds until a slow weapon can fire again; hidden when it can.
    TextHudItem* cooldownValue = nullptr;
    TextHudItem* messageLine = nullptr;
    TextHudItem* positionedMessage = nullptr;
    std::array<ImageHudItem*, 10> stripIcons{};
    ImageHudItem* stripHighlight = nullptr;
    TextHudItem* stripName = nullptr;
    ImageHudItem* upgradePanel = nullptr;
    TextHudItem* upgradeTitle = nullptr;
    TextHudItem* upgradeCurrentLevel = nullptr;
    TextHudItem* upgradeCash = nullptr;
    TextHudItem* upgradeUntilNext = nullptr;
    std::vector<UpgradeLevelText*> upgradeRows;

private:
    bool isStripItem(const HudItem& item) const;
    bool isUpgradeItem(const HudItem& item) const;
    // Dark panels behind the status and weapon columns for high contrast.
    void drawContrastPanels(IRenderer& renderer);
    ImageHudItem* addImage(int px, int py, int w, int h, const std::string& base);
    TextHudItem* addText(int px, int py, int size, bool shadow, bool red);

    Player* player = nullptr;
    GameVar* lowHealthFlashVar = nullptr;
    GameVar* uiScaleVar = nullptr;
    GameVar* contrastVar = nullptr;
    GameVar* flashesVar = nullptr;
    bool highContrast = false;
    std::vector<Message> messages;
    float messageExpiry = 0.0f;
    float positionedMessageExpiry = 0.0f;
    // Where showMessageAt put the positioned message, before fitting it on screen.
    int positionedX = 0;
    float weaponStripExpiry = 0.0f;
    ColourCycler flashCycler;
    bool upgradeScreenVisible = false;
    RGBAColour screenFlash;
    float screenFlashLeft = 0.0f;
};
