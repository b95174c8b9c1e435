#pragma once
// A bloody scrap thrown out by a violent death. Gibs bounce with a sound,
// trail blood, ignore traces and vanish after three seconds; the gameplay
// controller caps how many exist at once.
#include "world/gamebody/GameBody.h"

class Gib : public GameBody {
public:
    static constexpr float lifeMs = 3000.0f;

    Gib();
    std::unique_ptr<Body> clone() const override;
    void onTouch(TouchInfo& info) override;
    // Removes the gib once it has lived its time.
    void think(float dt) override;

    // 2 to 5 gibs at `position` (fewer when the cap is reached) and a red
    // flash when any were made. Returns how many.
    static int spawnGibs(const Vector& position, float speedMin, float speedMax, float sizeMin, float sizeMax);
    // Clack 12 or 13 when `body` moves vertically faster than 8, at most
    // every 250 ms; `nextTime` is the body's own next-sound time.
    static void bounceSound(Body& body, float& nextTime);

    float nextBounceSoundTime = 0.0f;
    float deathTime = 0.0f;

private:
    bool counted = true;
};
