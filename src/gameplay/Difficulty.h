#pragma once
// How hard the game is: the variable `difficulty` (0 easy, 1 normal, 2 hard)
// scales the damage the player takes and what pickups give. It changes the
// simulation, so demos carry it and saves keep it.
#include <string>

class Difficulty {
public:
    static constexpr int easy = 0;
    static constexpr int normal = 1;
    static constexpr int hard = 2;

    // The current level from `difficulty`, normal when the variable is absent.
    static int current();
    // Any number is held to easy..hard.
    static int clampLevel(int level);
    static float damageTakenFactor(int level);
    static float pickupFactor(int level);
    // Positive amounts are scaled and rounded, never below 1; others pass.
    static int scaleDamageTaken(int amount, int level);
    static int scalePickup(int amount, int level);
    static int scaleDamageTaken(int amount) { return scaleDamageTaken(amount, current()); }
    static int scalePickup(int amount) { return scalePickup(amount, current()); }
    // "Easy", "Normal", "Hard".
    static std::string name(int level);
};
