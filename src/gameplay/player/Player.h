#pragma once
// The body the user steers. Movement comes from GameplayInput as forces; the
// Player itself owns the rules that outlive a single key press: power-up
// timers on the level clock, death and the level restart two seconds later,
// the grappling-hook rope, cash, and remembering whether it stood on
// something since the controls last looked.
#include <string>

#include "gameplay/items/Inventory.h"
#include "gameplay/items/PlayerProperties.h"
#include "world/gamebody/GameBody.h"
#include "world/geometry/Vector.h"

class Player : public GameBody {
public:
    // Both power-ups last this long, in level-time milliseconds.
    static constexpr float powerUpMs = 30000.0f;
    // Time between death and the level restart.
    static constexpr float restartDelayMs = 2000.0f;
    // Where the death notice shows, in the HUD's 640 x 480 design space.
    static constexpr int deathMessageX = 170;
    static constexpr int deathMessageY = 200;

    Player();
    ~Player() override = default;

    std::unique_ptr<Body> clone() const override;
    // Death: stops firing, freezes and hides the player, schedules the restart.
    void die() override;
    // Damage the player takes follows the difficulty.
    int adjustDamage(int amount, int damageType) override;
    // Restart after death, power-up expiry.
    void think(float dt) override;
    // Remembers ground contacts for the platform controls.
    void onTouch(TouchInfo& info) override;
    // Rope and power-up glows, after the renderer drew the body.
    void drawExtras(IRenderer& renderer) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;

    // The level was loaded: per-level state resets (see levelReset).
    virtual void levelLoaded();
    // Attaches the power-up's particle effect to the player.
    virtual void applyQuadEffect();
    virtual void applyInvincibleEffect();
    // Fires the current weapon while the firing flag is set.
    virtual void fireCurrentWeapon();
    virtual void stopFiring();
    // Power-ups: 30 s of level time from now.
    virtual void giveInvincibility(float factor);
    virtual void giveQuad(float factor);
    virtual void giveCash(int amount);
    // After a death-restart, brings the player back to life at full health.
    virtual void levelReset();

    // The unit vector from the player towards its aim point (to the right
    // when the two coincide).
    Vector aimDirection() const;

    // Whether the player stood on something since the last call, then forgets
    // it. The controls ask once per step.
    bool takeGroundContact();
    // Level time, for callers outside the gameplay code.
    static float now();

    bool grappling = false;
    Body* hook = nullptr;
    Vector beamEnd;
    float airTime = 0.0f;
    bool canJump = true;
    bool dead = false;
    float restartTime = 0.0f;
    bool justRestarted = false;
    Vector mouseWorldPos;
    // Weapons and ammunition; cash and upgrade levels (cash lives there).
    Inventory inventory;
    PlayerProperties properties;
    std::string glowImage = "data/images/playerglow.png";
    // Set while the hook is attached (drawn red instead of cyan).
    bool hookAttached = false;

private:
    void playSound(int id);
    bool groundContact = false;
};
