#pragma once
// The base of every gun: timing (a shot is allowed once the level time has
// reached nextFireTime), the numbers a shot uses, and the shared shot
// pieces: muzzle point, spread, hitscan and piercing traces, tracers, beams
// and sounds. The player's Inventory owns one weapon per id; enemies own
// theirs singly. radialDamage is the area blast explosions and melee use.
#include <cstdint>
#include <string>

#include "world/geometry/Vector.h"

class Body;
class GameBody;
class ParticleSystem;

class FireableWeapon {
public:
    // The segment a hitscan crossed and what it hit (null when nothing).
    struct Shot {
        Vector end;
        Body* hit = nullptr;
    };

    FireableWeapon() = default;
    FireableWeapon(const FireableWeapon&) = delete;
    FireableWeapon& operator=(const FireableWeapon&) = delete;
    virtual ~FireableWeapon() = default;

    // One shot from `position` along the unit vector `aim` at level time
    // `time`; true when a shot went off (the caller then takes the ammo).
    virtual bool fire(Body* owner, const Vector& position, const Vector& aim, float time);
    // The trigger was let go; weapons with a held effect end it here.
    virtual void stopFiring(float time);
    // True once `time` has reached nextFireTime.
    virtual bool canFire(float time) const;
    // A level starts: the next shot is allowed at once. Overrides call the base.
    virtual void reset();
    // Copies this weapon's row of the definition table over its numbers;
    // weapons without a row keep their built-in values.
    virtual void applyDefinition();
    // The ammo left after one shot.
    virtual int ammoAfterShot(int ammo);

    // Standard rand() mapped to [lo, hi); 0 when both bounds are 0.
    static float uniform(float lo, float hi);
    // Area blast: pushes every body whose bounding circle meets the circle
    // (push falls off towards the rim) and gives every GameBody except the
    // attacker the full damage, sparing the player's side from itself.
    static void radialDamage(const Vector& centre, float radius, float force, int damage, int damageType,
                             Body* attacker);
    // The first body the segment hits: skips trace-through entities,
    // non-solid bodies and the owner; pushes and damages a GameBody hit.
    static Shot hitscan(Body* owner, const Vector& muzzle, const Vector& farPoint, float knockback, int damage,
                        int damageType);
    // Passes through every entity on the way (pushing and damaging each) and
    // stops at the first solid piece of level geometry.
    static Shot pierce(Body* owner, const Vector& muzzle, const Vector& farPoint, float knockback, int damage,
                       int damageType);
    // A named effect stretched between two points (beams, tracers), or at
    // one point when both are equal. Null without a running game.
    static ParticleSystem* effect(const std::string& name, const Vector& from, const Vector& to);
    static ParticleSystem* effect(const std::string& name, const Vector& at) { return effect(name, at, at); }
    // Raised by `dz` in depth, where effects are drawn over bodies.
    static Vector raised(const Vector& v, float dz) { return {v.x, v.y, v.z + dz, v.w}; }

    int32_t id1 = -1;
    int32_t id2 = -1;
    uint32_t flags = 0;
    float nextFireTime = 0.0f;
    float delay = 0.0f;
    float knockback = 0.0f;
    int32_t damage = 0;
    float range = 8096.0f;
    float spread = 800.0f;
    bool enemyWeapon = false;
    int32_t damageType = 0;

protected:
    // False when the weapon may not fire yet; otherwise books the next shot.
    bool beginShot(float time);
    // Out of the owner's outline, along the aim.
    static Vector muzzlePoint(Body* owner, const Vector& position, const Vector& aim);
    // The owner's damage scaling (quad) when it is a GameBody.
    int scaledDamage(Body* owner) const;
    // The far point of a shot moved sideways by this weapon's spread.
    Vector spreadPoint(const Vector& muzzle, const Vector& aim) const;
    // A short bright streak along a bullet's path.
    static void tracer(const Vector& muzzle, const Vector& end);
    // Bullet impact: hit sparks and the tracer.
    static void bulletEffects(const Vector& muzzle, const Vector& end);
    // The shot's sound at `at`; enemy weapons use their own mixing channel.
    void playShotSound(int soundId, const Vector& at) const;
    // Fills the common fields from a definition row.
    void copyCommon(const std::string& element, bool withRange, bool withSpread);
};
