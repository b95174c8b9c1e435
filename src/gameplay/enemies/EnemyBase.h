#pragma once
// The base of every enemy: a difficulty level (1 to 5) that each class maps
// to its own health, weapon numbers and image; a record of the body it has
// sighted and since when; a cash roll on death; and the shared behaviours a
// brain is built from: line of sight to the player, steering and patrol.
// Times are milliseconds of level time, as in GameBody.
#include <memory>
#include <string>

#include "world/gamebody/GameBody.h"

class Player;

class EnemyBase : public GameBody {
public:
    static constexpr int minLevel = 1;
    static constexpr int maxLevel = 5;

    EnemyBase();
    std::unique_ptr<Body> clone() const override;

    // setLevel then setHealthForLevel; spawners and hatching eggs call it.
    virtual void applyLevel(int newLevel);
    // Stores the level (clamped to 1..5); classes set their weapon numbers
    // and image here and must call the base first.
    virtual void setLevel(int newLevel);
    // Classes set health (and initialhealth) for the level here; empty here.
    virtual void setHealthForLevel(int newLevel);
    // Records `body` as sighted; sightedChanged and the time only move when
    // the sighted body actually changes.
    virtual void setSighted(Body* body);
    // Forgets the sighted body without touching sightedTime.
    virtual void clearSighted();
    // Called by setSighted when the sighted body changes; empty here.
    virtual void sightedChanged();

    // "level" from the level file (with its health unless "health" is
    // given too), "cashchance", "cashmin" and "cashmax"; the rest is
    // GameBody's.
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // Enemies never push the player: into walls, through ceilings or up.
    bool givesWayTo(const Body& other) const override;
    // GameBody's blood and gibs, then the cash roll.
    void deathEffects() override;
    // GameBody's death, logged once with the cash it dropped.
    void die() override;

    // The current player while it can be targeted (exists, is not dead and
    // waiting to restart, is not notarget); null otherwise.
    static Player* targetPlayer();
    // The current player whatever its state; null without a game.
    static Player* currentPlayer();
    // Line of sight from this enemy to the player; with ignoreEnemies other
    // enemies do not block it.
    bool canSee(bool ignoreEnemies) const;
    // Line of sight from `viewer` to `target`, walking the traced bodies
    // nearest first: the viewer, liquids, neutral GameBodies, details and
    // (with ignoreEnemies) enemies are transparent; anything else blocks.
    static bool lineOfSight(const Body& viewer, const Body& target, bool ignoreEnemies);
    // Adds direction x accel (horizontal part scaled by 0.2) to `velocity`
    // and caps its speed at maxSpeed.
    static void steer(Vector& velocity, const Vector& direction, float accel, float maxSpeed);
    // Alternates left and right at patrolSpeed every patrolPeriod ms.
    void patrol(float now);
    // Patrolling classes start moving at patrolSpeed; the rest start still.
    void startPatrol() { vel = Vector(patrolSpeed, 0.0f); }
    // Cash pickups actually thrown by the last death (for tests).
    int lastCashDropped() const { return cashDropped; }

    int level = 1;
    Body* sighted = nullptr;
    float sightedTime = 0.0f;
    bool dropsCash = true;
    int cashMin = 1;
    int cashMax = 1;
    int cashChance = 5;

    float patrolPeriod = 2000.0f;
    float nextTurnTime = 0.0f;
    float patrolSpeed = 64.0f;
    bool patrolRight = false;

    // A level file cannot make one enemy throw more pickups than this.
    static constexpr int maxCashDrop = 50;

protected:
    // Image by level: sets the texture and marks the body textured.
    void setImage(const std::string& path);
    // Logs the enemy's first attack (one line per enemy, for play logs).
    void reportAttack();
    // Plays a sound by id at the enemy's position; silent without a game.
    void playSoundHere(int soundId) const;

private:
    int cashDropped = 0;
    bool attackReported = false;
};
