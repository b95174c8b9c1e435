#include "gameplay/player/Player.h"

#include <tinyxml.h>

#include <cstdlib>

#include "core/Game.h"
#include "gameplay/Difficulty.h"
#include "gameplay/GameplaySingleton.h"
#include "render/GameHUD.h"
#include "render/IRenderer.h"
#include "world/geometry/RGBAColour.h"
#include "sound/ISound.h"

namespace {
GameHUD* hud() { return GameplaySingleton::get().hud; }
}

Player::Player()
{
    type = "player";
    id = "anarch";
    kind = 1;
    setTexture("data/images/debugsmiley.tga");
    textured = true;
    hasGlow = true;
    thinks = true;
    takedamage = true;
    // The first row of the upgrade table.
    maxhealth = 100;
    maxarmour = 100;
    setPlayerSide(true);
    inventory.owner = this;
}

std::unique_ptr<Body> Player::clone() const { return std::make_unique<Player>(); }

float Player::now() { return GameplaySingleton::get().levelTime(); }

void Player::playSound(int soundId)
{
    if (Game* game = Game::current())
        if (ISound* sound = game->getSound())
            sound->playIdAt(soundId, pos, 0);
}

void Player::die()
{
    if (dying || dead)
        return;
    stopFiring();
    deathEffects();

    setMass(0.0f);
    gravitymultiplier = 0.0f;
    vel = Vector();

    justRestarted = true;
    dying = true;
    dead = true;
    visible = false;
    solid = false;
    takedamage = false;
    restartTime = now() + restartDelayMs;
    if (GameHUD* h = hud()) {
        const Game* game = Game::current();
        // In the middle of the screen, where the player is looking.
        const std::string when = " in " + std::to_string(static_cast<int>(restartDelayMs / 1000.0f)) + " s";
        h->showMessageAt(deathMessageX, deathMessageY,
                         game && game->hasCheckpoint() ? "You died - checkpoint" + when : "You died - restart" + when);
    }
}

void Player::think(float)
{
    const float t = now();
    if (!dead)
        inventory.completePendingChange(t);
    if (dead && t > restartTime) {
        Game* game = Game::current();
        if (game && !game->isLevelPending() && !game->isLoadPending()) {
            game->restartAfterDeath();
            justRestarted = true;
            playSound(15);
        }
    }

    if (hasquad && quadtime < t) {
        quadtime = 0.0f;
        hasquad = false;
        damagefactor = 1.0f;
        playSound(27);
    }
    if (hasinvinc && invinctime < t) {
        invinctime = 0.0f;
        hasinvinc = false;
        damagetakenfactor = 1.0f;
    }
}

void Player::onTouch(TouchInfo& info)
{
    Body* other = info.other;
    if (!other || !solid || !other->solid || !collidesWith(other) || !other->collidesWith(this))
        return;
    // The contact normal points at the body whose collision pass found the
    // contact; turn it so that it points at the player.
    Vector n = info.normal;
    const Vector away(pos.x - other->pos.x, pos.y - other->pos.y);
    if (n.dot2(away) < 0.0f)
        n = n * -1.0f;
    if (n.y >= 0.5f && n.y <= 1.0f)
        groundContact = true;
}

bool Player::takeGroundContact()
{
    const bool touched = groundContact || onGround;
    groundContact = false;
    onGround = false;
    return touched;
}

void Player::drawExtras(IRenderer& renderer)
{
    // Drawn where the body is drawn this frame: the interpolated position.
    const Vector& at = renderpos;
    const float z = at.z + zShift + 0.2f;
    if (grappling && hook) {
        beamEnd = hook->renderpos;
        renderer.setTexturing(true);
        renderer.setBlending(true);
        renderer.setAlphaBlend();
        renderer.bindTexture("data/particles/beam.tga");
        if (hookAttached)
            renderer.setColour(255.0f, 0.0f, 0.0f, 200.0f);
        else
            renderer.setColour(0.0f, 255.0f, 255.0f, 200.0f);
        renderer.drawTiledBeam(at, beamEnd, z, 4.0f, 64.0f, true);
    }
    if (hasinvinc)
        renderer.drawTintedSprite(at.x, at.y, z, 18.0f, 24.0f, "data/particles/magneticpulse.png",
                                  RGBAColour(255.0f, 0.0f, 0.0f, 200.0f));
    if (hasquad)
        renderer.drawTintedSprite(at.x, at.y, z, 24.0f, 18.0f, "data/particles/magneticpulse.png",
                                  RGBAColour(0.0f, 255.0f, 0.0f, 200.0f));
}

void Player::readState(TiXmlElement* element)
{
    // A save holds a living player: one loaded while dead (back to a
    // checkpoint) comes back to life first, then takes the saved values.
    if (dead) {
        justRestarted = true;
        levelReset();
    }
    GameBody::readState(element);
    if (!element)
        return;
    properties.load(element);
    maxhealth = properties.maxHealth;
    maxarmour = properties.maxArmour;
    inventory.load(element);
}

void Player::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    properties.save(element);
    inventory.save(element);
}

void Player::levelLoaded() { levelReset(); }

// The power-up effects are particle systems attached to the player; with no
// effect definitions loaded there is nothing to attach.
void Player::applyQuadEffect() {}
void Player::applyInvincibleEffect() {}

Vector Player::aimDirection() const
{
    Vector d(mouseWorldPos.x - pos.x, mouseWorldPos.y - pos.y);
    const float len = d.length2D();
    return len > 0.0f ? Vector(d.x / len, d.y / len) : Vector(1.0f, 0.0f);
}

void Player::fireCurrentWeapon()
{
    if (dead)
        return;
    inventory.fire(this, pos, aimDirection(), now(), inventory.currentWeapon);
}

void Player::stopFiring() { inventory.stopFiring(inventory.currentWeapon, now()); }

void Player::giveInvincibility(float factor)
{
    if (!hasinvinc)
        applyInvincibleEffect();
    hasinvinc = true;
    damagetakenfactor = factor;
    invinctime = now() + powerUpMs;
    playSound(25);
    if (GameHUD* h = hud())
        h->pickupMessage("Invincibility");
}

void Player::giveQuad(float factor)
{
    if (!hasquad)
        applyQuadEffect();
    hasquad = true;
    if (factor > damagefactor)
        damagefactor = factor;
    quadtime = now() + powerUpMs;
    playSound(25);
    if (GameHUD* h = hud())
        h->pickupMessage("Quad Damage");
}

void Player::giveCash(int amount)
{
    properties.cash += amount;
    if (properties.checkUpgrades()) {
        maxhealth = properties.maxHealth;
        maxarmour = properties.maxArmour;
    }
    playSound(24);
    if (GameHUD* h = hud())
        h->pickupMessage("Cash");
    if (properties.upgradeAvailable) {
        properties.upgradeAvailable = false;
        playSound(30);
        if (GameHUD* h = hud())
            h->showMessage(properties.upgradeMessage, 8);
    }
}

void Player::levelReset()
{
    if (!justRestarted)
        return;
    justRestarted = false;
    dead = false;
    dying = false;
    setMass(100.0f);
    visible = true;
    solid = true;
    gravitymultiplier = 1.0f;
    takedamage = true;
    maxhealth = properties.maxHealth;
    maxarmour = properties.maxArmour;
    health = maxhealth;
}

int Player::adjustDamage(int amount, int damageType)
{
    return Difficulty::scaleDamageTaken(GameBody::adjustDamage(amount, damageType));
}
