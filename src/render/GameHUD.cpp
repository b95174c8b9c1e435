#include "render/GameHUD.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <tuple>
#include <utility>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "gameplay/DefaultGameplay.h"
#include "gameplay/GameplaySingleton.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/FireableWeapon.h"
#include "gameplay/weapons/WeaponMapping.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/ImageHudItem.h"
#include "render/TextFit.h"
#include "render/TextHudItem.h"
#include "render/UpgradeLevelText.h"

namespace {
const std::string images = "data/images/";
const char* const flashImage = "data/particles/cloud.png";

// Saved games can carry absurd times: a count beyond any real power-up
// must not overflow the conversion.
std::string wholeSeconds(float ms)
{
    constexpr float longest = 1.0e9f;
    return std::to_string(static_cast<int>(std::clamp(ms, 0.0f, longest) / 1000.0f));
}

// Keeps a message whole on screen: as near its preferred x as fits, and
// wrapped over the window's width when one line cannot hold it.
// Keeps the text right of `left` (the status column beside the message line)
// unless that leaves too little room to read it.
void placeMessage(TextHudItem& item, FontRenderer& font, int preferredX, int screenWidth, int left = 0)
{
    constexpr int margin = 8;
    if (!font.selectFont("vera", item.fontSize))
        return;
    const float old = font.getScale();
    font.setScale(item.scale);
    const int width = static_cast<int>(TextFit::drawnWidth(font, item.text)) + 1;
    font.setScale(old);
    const int start = screenWidth - left - margin >= screenWidth / 2 ? std::max(margin, left) : margin;
    const int room = screenWidth - start - margin;
    item.wrap = width > room;
    item.pixelWidth = item.wrap ? room : 0;
    item.pixelX = item.wrap ? start : std::max(start, std::min(preferredX, screenWidth - width - margin));
}
}

GameHUD::GameHUD() : Hud(640, 480)
{
    keepProportions = true;
    flashCycler.minimum = 50.0f;
    flashCycler.maximum = 150.0f;
    flashCycler.current = 100.0f;
    flashCycler.speed = 150.0f;
    flashCycler.rising = true;
}

GameHUD::~GameHUD() = default;

void GameHUD::init()
{
    if (items.empty()) {
        createItems();
        createWeaponStrip();
        createUpgradeScreen();
    }
    lowHealthFlashVar = findVar("lowhealthflash");
    uiScaleVar = findVar("uiscale");
    contrastVar = findVar("hudcontrast");
    flashesVar = findVar("flashes");
    applyOptions();
}

ImageHudItem* GameHUD::addImage(int px, int py, int w, int h, const std::string& base)
{
    auto* item = add<ImageHudItem>();
    item->setPosition(px, py);
    item->setSize(w, h);
    item->setImage(images + base, ".png");
    return item;
}

TextHudItem* GameHUD::addText(int px, int py, int size, bool shadow, bool red)
{
    auto* item = add<TextHudItem>();
    item->setPosition(px, py);
    item->setFont("vera", size);
    item->shadow = shadow;
    if (red)
        item->setColour(255, 0, 0, 255);
    return item;
}

void GameHUD::createItems()
{
    // Panel backgrounds stay hidden: the icons carry the panel.
    auto bar = [this](int px, int py, int w, int h, const char* base, int steps, bool clamp) {
        ImageHudItem* item = addImage(px, py, w, h, base);
        item->clamp = clamp;
        item->glow = true;
        item->glowSteps = steps;
        item->glowAlphaStep = 150;
        item->visible = false;
        return item;
    };
    bar(5, 470, 10, 50, "iconbgleft", 2, true);
    bar(15, 470, 100, 50, "iconbgcentre", 2, false);
    statusColumnEnd = bar(115, 470, 10, 50, "iconbgright", 2, true);

    // The status column: each row 20-24 units below the one above.
    int iconY = 462;
    auto row = [&](const char* icon, bool red, int gap) {
        ImageHudItem* image = addImage(19, iconY, 16, 16, icon);
        TextHudItem* value = addText(19 + 20, iconY - 12, 14, true, red);
        iconY -= gap;
        return std::make_pair(image, value);
    };
    healthValue = row("health", false, 20).second;
    armourValue = row("armour", true, 24).second;
    swarmValue = row("swarmtimer", true, 20).second;
    std::tie(quadIcon, quadValue) = row("quad", true, 20);
    std::tie(invincibilityIcon, invincibilityValue) = row("invincibility", true, 20);
    std::tie(raceIcon, raceValue) = row("racetimer", true, 20);
    for (HudItem* item : {static_cast<HudItem*>(quadIcon), static_cast<HudItem*>(quadValue),
                          static_cast<HudItem*>(invincibilityIcon), static_cast<HudItem*>(invincibilityValue),
                          static_cast<HudItem*>(raceIcon), static_cast<HudItem*>(raceValue)})
        item->visible = false;

    bar(490, 470, 10, 60, "iconbgleft", 1, true);
    bar(500, 470, 125, 60, "iconbgcentre", 1, false);
    bar(625, 470, 10, 60, "iconbgright", 1, true);

    weaponIcon = addImage(504, 462, 48, 24, "rocketlauncher");
    weaponIcon->glow = true;
    weaponIcon->glowSteps = 2;
    weaponIcon->glowAlphaStep = 150;
    weaponIcon->clamp = true;
    weaponName = addText(504, 462 - 44, 14, true, true);
    weaponName->setText("rocket launcher");
    // Long names stay inside the weapon panel.
    weaponName->setSize(130, 0);
    ammoValue = addText(504 + 72, 462 - 24, 14, true, true);
    cooldownValue = addText(504 + 72, 462 - 6, 14, true, true);
    cooldownValue->visible = false;
    messageLine = addText(504, 462 - 44 - 24, 18, true, false);
    messageLine->visible = false;
    positionedMessage = addText(0, 0, 18, true, true);
    positionedMessage->visible = false;
}

void GameHUD::createWeaponStrip()
{
    for (int slot = 1; slot <= 10; ++slot) {
        ImageHudItem* icon = addImage(150 + (slot - 1) * 34, 472, 32, 16, WeaponMapping::itemName(slot));
        icon->clamp = true;
        icon->visible = false;
        stripIcons[static_cast<size_t>(slot - 1)] = icon;
        icon->anchorX = HudItem::Anchor::Centre;
    }
    stripHighlight = addImage(150, 476, 40, 24, "weaponselected");
    stripHighlight->clamp = true;
    stripHighlight->glow = true;
    stripHighlight->glowSteps = 1;
    stripHighlight->glowAlphaStep = 150;
    stripHighlight->visible = false;
    stripName = addText(150, 444, 18, true, false);
    stripName->visible = false;
    // The strip is one group centred at the top.
    for (HudItem* item : {static_cast<HudItem*>(stripHighlight), static_cast<HudItem*>(stripName)})
        item->anchorX = HudItem::Anchor::Centre;
}

void GameHUD::createUpgradeScreen()
{
    upgradePanel = addImage(280, 350, 300, 280, "techbase");
    upgradePanel->setColour(50, 50, 100, 255);
    upgradePanel->clamp = true;
    // Every text of the upgrade screen stays inside its panel.
    constexpr int textRoom = 280;
    upgradeTitle = addText(295, 328, 18, true, false);
    upgradeTitle->setText("Upgrades");
    upgradeCurrentLevel = addText(295, 304, 14, true, false);
    upgradeCurrentLevel->setText("Current Level : 1");
    upgradeCash = addText(295, 286, 14, true, false);
    upgradeUntilNext = addText(295, 268, 14, true, false);
    for (TextHudItem* item : {upgradeTitle, upgradeCurrentLevel, upgradeCash, upgradeUntilNext})
        item->setSize(textRoom, 0);
    const PlayerProperties table;
    int rowY = 246;
    for (const auto& entry : table.upgrades) {
        auto* rowText = add<UpgradeLevelText>();
        rowText->setPosition(295, rowY);
        rowText->setFont("vera", 14);
        rowText->setSize(textRoom, 0);
        rowText->shadow = true;
        rowText->cost = entry.first;
        rowText->setText(entry.second.displayText + " ($" + std::to_string(entry.first) + ")");
        upgradeRows.push_back(rowText);
        rowY -= 15;
    }
    // The upgrade screen stays one panel in the middle of the window.
    const auto centre = [](HudItem* item) { item->anchorX = item->anchorY = HudItem::Anchor::Centre; };
    for (HudItem* item : {static_cast<HudItem*>(upgradePanel), static_cast<HudItem*>(upgradeTitle),
                          static_cast<HudItem*>(upgradeCurrentLevel), static_cast<HudItem*>(upgradeCash),
                          static_cast<HudItem*>(upgradeUntilNext)})
        centre(item);
    for (UpgradeLevelText* rowText : upgradeRows)
        centre(rowText);
    setUpgradeScreen(false);
}

bool GameHUD::isStripItem(const HudItem& item) const
{
    return &item == stripHighlight || &item == stripName ||
           std::find(stripIcons.begin(), stripIcons.end(), &item) != stripIcons.end();
}

namespace {
// Design extents of the strip (highlight included) and of the two panels beside it.
constexpr int stripLeft = 146;
constexpr int stripRight = 492;
constexpr int stripTop = 476;
constexpr int statusRight = 125;
constexpr int weaponLeft = 500;
constexpr int panelsBottom = 400;
}

bool GameHUD::isUpgradeItem(const HudItem& item) const
{
    return &item == upgradePanel || &item == upgradeTitle || &item == upgradeCurrentLevel || &item == upgradeCash ||
           &item == upgradeUntilNext || std::find(upgradeRows.begin(), upgradeRows.end(), &item) != upgradeRows.end();
}

float GameHUD::scaleFor(const HudItem& item) const
{
    const float scale = Hud::scaleFor(item);
    if (isUpgradeItem(item)) {
        // The panel reaches 260 units right of the centre and 170 below it.
        const float fit = std::min(static_cast<float>(screenWidth) / 2.0f / 260.0f,
                                   static_cast<float>(screenHeight) / 2.0f / 170.0f);
        return std::max(0.1f, std::min(scale, fit));
    }
    if (!isStripItem(item))
        return scale;
    constexpr float margin = 8.0f;
    const float fit = (static_cast<float>(screenWidth) - 2.0f * margin) / static_cast<float>(stripRight - stripLeft);
    return std::max(0.1f, std::min(scale, fit));
}

void GameHUD::scaleItem(HudItem& item, int px, int py)
{
    Hud::scaleItem(item, px, py);
    if (!isStripItem(item))
        return;
    // Beside the panels when it fits between them, else under the weapon panel.
    const float panel = uniformScale();
    const float strip = scaleFor(item);
    const float half = static_cast<float>(screenWidth) / 2.0f;
    const float left = half + static_cast<float>(stripLeft - designWidth / 2) * strip;
    const float right = half + static_cast<float>(stripRight - designWidth / 2) * strip;
    const float statusEdge = static_cast<float>(statusRight) * panel;
    const float weaponEdge = static_cast<float>(screenWidth) - static_cast<float>(designWidth - weaponLeft) * panel;
    if (left >= statusEdge && right <= weaponEdge)
        return;
    const float drop = static_cast<float>(designHeight - panelsBottom) * panel -
                       static_cast<float>(designHeight - stripTop) * strip;
    item.pixelY -= static_cast<int>(std::lround(drop));
}

void GameHUD::applyOptions()
{
    highContrast = contrastVar && contrastVar->intValue != 0;
    const float set = uiScaleVar ? uiScaleVar->floatValue : interfaceScale;
    const float wanted = std::isfinite(set) ? std::clamp(set, 1.0f, 2.0f) : 1.0f;
    if (wanted == interfaceScale)
        return;
    interfaceScale = wanted;
    if (screenWidth > 0 && screenHeight > 0)
        resize(screenWidth, screenHeight);
}

void GameHUD::levelReset()
{
    clearMessages();
    weaponStripExpiry = 0.0f;
    screenFlashLeft = 0.0f;
    setWeaponStripVisible(false);
}

void GameHUD::clearMessages()
{
    messages.clear();
    messageExpiry = positionedMessageExpiry = weaponStripExpiry = 0.0f;
    if (messageLine)
        messageLine->visible = false;
    if (positionedMessage)
        positionedMessage->visible = false;
}

void GameHUD::showMessage(const std::string& text, int size)
{
    // A short history stays for tests and the console; the line shows the newest.
    if (messages.size() >= 4)
        messages.erase(messages.begin());
    const float now = levelTime();
    messages.push_back({text, size, now + messageMs});
    messageExpiry = now + messageMs;
    if (messageLine) {
        messageLine->setText(text);
        messageLine->setFont("vera", size < 12 ? 14 : std::min(size, 18));
        messageLine->visible = true;
    }
}

void GameHUD::showMessageAt(int px, int py, const std::string& text)
{
    if (!positionedMessage)
        return;
    positionedMessage->setPosition(px, py);
    scaleItem(*positionedMessage, px, py);
    positionedX = positionedMessage->pixelX;
    positionedMessage->setText(text);
    positionedMessage->visible = true;
    positionedMessageExpiry = levelTime() + positionedMessageMs;
}

void GameHUD::showWeaponStrip()
{
    weaponStripExpiry = levelTime() + weaponStripMs;
    updateWeaponStrip();
    setWeaponStripVisible(true);
}

bool GameHUD::isWeaponStripVisible() const { return stripHighlight && stripHighlight->visible; }

void GameHUD::setWeaponStripVisible(bool on)
{
    for (ImageHudItem* icon : stripIcons)
        if (icon)
            icon->visible = on;
    if (stripHighlight)
        stripHighlight->visible = on;
    if (stripName)
        stripName->visible = on;
}

void GameHUD::setWeaponIcon(const std::string& itemName)
{
    if (weaponIcon)
        weaponIcon->setImage(images + itemName, ".png");
}

void GameHUD::updateWeaponStrip()
{
    if (!player || !stripHighlight)
        return;
    const Inventory& inv = player->inventory;
    for (int slot = 1; slot <= 10; ++slot) {
        ImageHudItem* icon = stripIcons[static_cast<size_t>(slot - 1)];
        icon->setColour(255, 255, 255, inv.owns(slot) ? 255 : 100);
    }
    const int current = std::clamp(inv.currentWeapon, 1, 10);
    const int px = 150 + (current - 1) * 34 - 4;
    stripHighlight->setPosition(px, 476);
    scaleItem(*stripHighlight, px, 476);
    stripName->setText(WeaponMapping::displayName(inv.currentWeapon));
}

void GameHUD::update(float) { update(player); }

void GameHUD::update(Player* p)
{
    if (p)
        player = p;
    refresh();
}

void GameHUD::refresh()
{
    const float now = levelTime();
    while (!messages.empty() && messages.front().expiresAt < now)
        messages.erase(messages.begin());
    if (messageLine)
        messageLine->visible = messageExpiry > now;
    if (positionedMessage)
        positionedMessage->visible = positionedMessageExpiry > now;
    if (!player || !healthValue)
        return;

    // Pain can take health below zero; the panel never shows less than none.
    healthValue->setText(std::to_string(std::max(0, player->health)));
    armourValue->setText(std::to_string(std::max(0, player->armour)));
    quadIcon->visible = quadValue->visible = player->hasquad;
    quadValue->setText(wholeSeconds(player->quadtime - now));
    invincibilityIcon->visible = invincibilityValue->visible = player->hasinvinc;
    invincibilityValue->setText(wholeSeconds(player->invinctime - now));
    DefaultGameplay* gameplay = GameplaySingleton::get().gameplay;
    const bool racing = gameplay && gameplay->isRaceActive();
    raceIcon->visible = raceValue->visible = racing;
    if (racing) {
        char text[32];
        std::snprintf(text, sizeof text, "%.1f", gameplay->raceTime() / 1000.0f);
        raceValue->setText(text);
    }

    const Inventory& inv = player->inventory;
    const FireableWeapon* swarm = inv.weapon(10);
    const float swarmLeft = swarm ? swarm->nextFireTime - now : 0.0f;
    swarmValue->setText(swarmLeft < 1000.0f ? "Ready!" : wholeSeconds(swarmLeft));

    const WeaponMapping::Row* row = WeaponMapping::byId(inv.currentWeapon);
    if (row) {
        setWeaponIcon(row->itemName);
        weaponName->setText(row->displayName);
        const int count = inv.ammoOf(row->ammoType);
        ammoValue->setText(count == Inventory::unlimited ? "INF" : std::to_string(count));
    }
    // Quick weapons are ready again before anyone could read a countdown.
    const FireableWeapon* weapon = inv.current();
    const float cooldown = weapon ? weapon->nextFireTime - now : 0.0f;
    cooldownValue->visible = weapon && weapon->delay >= slowWeaponMs && cooldown > 0.0f;
    if (cooldownValue->visible) {
        char text[32];
        std::snprintf(text, sizeof text, "%.1f", std::min(cooldown, 999000.0f) / 1000.0f);
        cooldownValue->setText(text);
    }
    updateWeaponStrip();
    setWeaponStripVisible(weaponStripExpiry > now);
    if (upgradeScreenVisible)
        updateUpgradeScreen();
}

void GameHUD::setUpgradeScreen(bool on)
{
    upgradeScreenVisible = on;
    for (HudItem* item : {static_cast<HudItem*>(upgradePanel), static_cast<HudItem*>(upgradeTitle),
                          static_cast<HudItem*>(upgradeCurrentLevel), static_cast<HudItem*>(upgradeCash),
                          static_cast<HudItem*>(upgradeUntilNext)})
        if (item)
            item->visible = on;
    for (UpgradeLevelText* rowText : upgradeRows)
        rowText->visible = on;
    if (on)
        updateUpgradeScreen();
}

void GameHUD::updateUpgradeScreen()
{
    if (!player || !upgradeCurrentLevel)
        return;
    const PlayerProperties& props = player->properties;
    upgradeCurrentLevel->setText("Current Level : " + std::to_string(std::max(0, props.currentLevel)));
    upgradeCash->setText("Current Cash : " + std::to_string(props.cash));
    upgradeUntilNext->setText("Cash Until Next Level : " + std::to_string(props.cashUntilNextLevel()));
    dimUnaffordableUpgrades();
}

void GameHUD::dimUnaffordableUpgrades()
{
    const int cash = player ? player->properties.cash : 0;
    for (UpgradeLevelText* rowText : upgradeRows) {
        if (rowText->cost > cash)
            rowText->setColour(100, 100, 100, 255);
        else
            rowText->setColour(255, 255, 255, 255);
    }
}

bool GameHUD::lowHealthFlashActive() const
{
    const bool enabled = (!lowHealthFlashVar || lowHealthFlashVar->intValue >= 1) && flashShare() > 0.0f;
    return player && enabled && player->health <= 55 && !player->dead;
}

float GameHUD::flashShare() const
{
    // Off, low and full: low keeps the warning without the glare.
    const int level = flashesVar ? flashesVar->intValue : 2;
    return level <= 0 ? 0.0f : level == 1 ? 0.35f : 1.0f;
}

void GameHUD::drawLowHealthFlash(IRenderer& renderer, float frameTime)
{
    if (!lowHealthFlashActive())
        return;
    if (player->health > 35) {
        flashCycler.speed = 150.0f;
        flashCycler.minimum = 30.0f;
        flashCycler.maximum = 90.0f;
    } else {
        flashCycler.speed = 512.0f;
        flashCycler.minimum = 50.0f;
        flashCycler.maximum = 150.0f;
    }
    flashCycler.update(frameTime);
    renderer.setColour(255.0f, 0.0f, 0.0f, flashCycler.current * flashShare());
    renderer.drawImage(0.0f, static_cast<float>(screenHeight), 0.0f, static_cast<float>(screenWidth),
                       static_cast<float>(screenHeight), flashImage, true, true);
}

void GameHUD::flashScreen(const RGBAColour& colour)
{
    screenFlash = colour;
    screenFlashLeft = flashSeconds;
}

void GameHUD::drawContrastPanels(IRenderer& renderer)
{
    // One dark box round each shown column of text and icons.
    constexpr int pad = 4;
    auto box = [&](std::initializer_list<const HudItem*> column) {
        int left = screenWidth, right = 0, top = 0, bottom = screenHeight;
        bool any = false;
        for (const HudItem* item : column) {
            if (!item || !item->visible)
                continue;
            const auto* text = dynamic_cast<const TextHudItem*>(item);
            const int w = item->pixelWidth > 0 ? item->pixelWidth
                                               : static_cast<int>(text ? text->lineHeight() * 3.0f : 0.0f);
            const int h =
                item->pixelHeight > 0 ? item->pixelHeight : static_cast<int>(text ? text->lineHeight() : 0.0f);
            // Text hangs from its baseline's line box; icons from their top.
            const int itemTop = text ? item->pixelY + h : item->pixelY;
            left = std::min(left, item->pixelX);
            right = std::max(right, item->pixelX + w);
            top = std::max(top, itemTop);
            bottom = std::min(bottom, itemTop - h);
            any = true;
        }
        if (!any)
            return;
        renderer.drawQuad(static_cast<float>(left - pad), static_cast<float>(top + pad), 0.0f,
                          static_cast<float>(right - left + 2 * pad), static_cast<float>(top - bottom + 2 * pad));
    };
    renderer.setTexturing(false);
    renderer.setBlending(true);
    renderer.setAlphaBlend();
    renderer.setColour(0.0f, 0.0f, 0.0f, 200.0f);
    box({healthValue, armourValue, swarmValue, quadValue, invincibilityValue, raceValue});
    box({weaponIcon, weaponName, ammoValue, cooldownValue});
    renderer.setTexturing(true);
}

void GameHUD::draw(IRenderer* renderer, float frameTime)
{
    if (!renderer || !player)
        return;
    applyOptions();
    renderer->begin2D();
    drawLowHealthFlash(*renderer, frameTime);
    if (screenFlashLeft > 0.0f) {
        const float alpha = screenFlash.a * screenFlashLeft / flashSeconds * flashShare();
        renderer->setColour(screenFlash.r, screenFlash.g, screenFlash.b, alpha);
        if (alpha > 0.0f)
            renderer->drawImage(0.0f, static_cast<float>(screenHeight), 0.0f, static_cast<float>(screenWidth),
                                static_cast<float>(screenHeight), flashImage, true, true);
        screenFlashLeft -= frameTime;
    }
    // Long messages would run off the right edge from the panel's x: pull
    // them in so they stay whole.
    if (FontRenderer* font = renderer->getFontRenderer()) {
        if (messageLine && messageLine->visible)
            placeMessage(*messageLine, *font, weaponIcon ? weaponIcon->pixelX : 0, screenWidth,
                         statusColumnEnd ? statusColumnEnd->pixelX + statusColumnEnd->pixelWidth : 0);
        if (positionedMessage && positionedMessage->visible)
            placeMessage(*positionedMessage, *font, positionedX, screenWidth);
    }
    if (highContrast)
        drawContrastPanels(*renderer);
    renderer->end2D();
    if (!highContrast) {
        Hud::draw(*renderer);
        return;
    }
    // Red on a busy level is hard to read: values turn bright yellow for the frame.
    std::vector<std::pair<HudItem*, RGBAColour>> recoloured;
    for (const auto& item : items)
        if (dynamic_cast<TextHudItem*>(item.get()) && item->colour.r > 200.0f && item->colour.g < 60.0f) {
            recoloured.emplace_back(item.get(), item->colour);
            item->setColour(255, 230, 40, static_cast<int>(item->colour.a));
        }
    Hud::draw(*renderer);
    for (const auto& [item, colour] : recoloured)
        item->colour = colour;
}
