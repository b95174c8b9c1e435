#pragma once
// A fixed gun emplacement. It tracks a visible player within range with a
// red laser sight, and opens fire with its chaingun only after it has held
// the player in view for a second, so a quick dash past it is safe.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"

class ChaingunWeapon;

class Turret : public EnemyBase {
public:
    static constexpr float sightRange = 256.0f;
    // How long the player must stay in view before the first shot.
    static constexpr float warmUpMillis = 1000.0f;

    Turret();
    ~Turret() override;
    std::unique_ptr<Body> clone() const override;
    void think(float dt) override;
    // The lock-on tone.
    void sightedChanged() override;
    // The gun (the weapon's view image) and the laser sight along the aim.
    void drawExtras(IRenderer& renderer) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;

    ChaingunWeapon& gun() const { return *weapon; }
    const Vector& getAim() const { return aim; }

private:
    std::unique_ptr<ChaingunWeapon> weapon;
    Vector aim{-1.0f, 0.0f};
};
