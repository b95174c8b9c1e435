#pragma once
// The base of every game entity (player, enemies, pickups, projectiles, level
// logic): health and armour with the damage rules, quad damage and
// invincibility, death with lives, limbo and revival, ownership between a
// spawner and what it spawned, and the target/trigger protocol through which
// level logic fires other bodies. Times are milliseconds of level time.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "world/body/Body.h"
#include "world/geometry/BitFlags.h"

class GameBody : public Body {
public:
    // First flag set: hit-scan traces pass through the body.
    static constexpr uint32_t traceThroughFlag = 1u << 1;
    // Second flag set: the body is an enemy / is on the player's side.
    static constexpr uint32_t enemyFlag = 1u << 1;
    static constexpr uint32_t playerSideFlag = 1u << 2;
    // Time spent in limbo between a death with lives left and the revival.
    static constexpr float limboMillis = 3000.0f;

    GameBody();
    // Lets go of the owned bodies and leaves the owner's list.
    ~GameBody() override;

    std::unique_ptr<Body> clone() const override;
    // Loses a life; with none left fires the targets and asks the game to
    // remove the body, otherwise goes into limbo (see think).
    void die() override;
    // Revival from limbo. Overrides extend it and must call the base.
    void think(float dt) override;
    // Body's attributes, then "health" (health, initialhealth and maxhealth)
    // and "lives".
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // The named class flags; every side and trace test reads these.
    bool isTraceThrough() const { return flags1.hasFlag(traceThroughFlag); }
    void setTraceThrough(bool on) { on ? flags1.setFlag(traceThroughFlag) : flags1.clearFlag(traceThroughFlag); }
    bool isEnemy() const { return flags2.hasFlag(enemyFlag); }
    void setEnemy(bool on) { on ? flags2.setFlag(enemyFlag) : flags2.clearFlag(enemyFlag); }
    bool isPlayerSide() const { return flags2.hasFlag(playerSideFlag); }
    void setPlayerSide(bool on) { on ? flags2.setFlag(playerSideFlag) : flags2.clearFlag(playerSideFlag); }

    // Links the owner named by a saved game's "ownerid".
    void beforeTargets() override;

    // health += n, capped at maxhealth.
    virtual void addHealth(int n);
    // The damage rules; damageType is chosen by the source (hazards use -1).
    virtual void takeDamage(int amount, int damageType);
    // Whether this damage type can hurt the body at all; true here.
    virtual bool canBeDamagedBy(int damageType);
    // Where derived classes change incoming damage; returns it unchanged here.
    virtual int adjustDamage(int amount, int damageType);
    virtual void setHealth(int n);
    virtual int getHealth() const;
    // armour += n, capped at maxarmour.
    virtual void addArmour(int n);
    // Takes up to n points from the armour; returns (and stores in
    // `absorbed`) how many it took.
    virtual int absorbArmour(int n, int& absorbed);
    virtual void setArmour(int n);
    virtual int getArmour() const;
    // Takes the first occurrence out of the owned list; numalive drops by one.
    virtual void removeOwned(GameBody* body);
    // Clears the owner of every owned body, then empties the list.
    virtual void releaseOwned();
    // Blood, ghost and gibs of a death; called by die() before the body is
    // removed or goes into limbo. Only with showdamage set.
    virtual void deathEffects();
    // Blood where the body was hit; called by takeDamage when showdamage is set.
    virtual void showDamage();
    // Reaction to being fired by another body's triggerTargets; empty here.
    // Level logic overrides it.
    virtual void onTriggered(GameBody* activator);
    // Integer part of damagefactor x n: the damage this body deals.
    virtual int scaleDamage(int n);
    // Starts the named particle effect at a point (by default the body's
    // position raised by 0.2) and emits its initial particles; null without
    // a running game.
    ParticleSystem* startEffect(const std::string& name, const Vector& at);
    ParticleSystem* startEffect(const std::string& name);
    // Floating text above a point (pickups, damage numbers).
    virtual void spawnText(const Vector& position, const std::string& text, int size, bool shadow, float scale,
                           const std::string& font);
    // onTriggered(this) on every target that is a GameBody, in list order;
    // does nothing while this body is already firing them.
    virtual void triggerTargets();

    // Level time in milliseconds: the clock every time field here uses.
    static float now();
    // Makes `child` owned by this body (appends it; numalive is the
    // spawner's business).
    void adopt(GameBody* child);

    GameBody* getOwner() const { return owner; }
    void setOwner(GameBody* newOwner) { owner = newOwner; }
    const std::vector<GameBody*>& getOwned() const { return ownedBodies; }
    bool isGodMode() const { return godMode; }
    void setGodMode(bool on) { godMode = on; }

    int health = 100;
    int maxhealth = 200;
    int armour = 0;
    int maxarmour = 200;
    bool takedamage = false;
    bool dying = false;
    bool showdamage = true;
    float deathtime = 0.0f;
    float deathdelay = 5000.0f;
    float nextpaintime = 0.0f;
    bool notarget = false;
    BitFlags flags1;
    BitFlags flags2;
    BitFlags flags3;
    bool hasquad = false;
    float damagefactor = 1.0f;
    float quadtime = 0.0f;
    int numalive = 0;
    int maxalive = 0;
    int ownerid = 0;
    bool hasinvinc = false;
    float damagetakenfactor = 1.0f;
    float invinctime = 0.0f;
    int numlives = 1;
    bool inlimbo = false;
    float revivetime = 0.0f;
    int initialhealth = 100;
    bool gibbable = true;

protected:
    // Out of the owner's list without counting a death (re-linking).
    void leaveOwner();

    GameBody* owner = nullptr;
    std::vector<GameBody*> ownedBodies;
    bool godMode = false;
    // Set while this body fires its targets, so targets that lead back to it
    // end the chain instead of recursing without end.
    bool passingTriggerOn = false;
};
