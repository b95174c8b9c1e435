#pragma once
// Small pieces the special enemies and hazards share: the explosion a
// machine makes when it dies, the electric shock of grids and killer balls,
// positional sounds and the direction towards another body.
#include "world/geometry/Vector.h"

class Body;
class EnemyBase;
class GameBody;

namespace EnemyEffects {

// Shock wave, fire and sparks over `at`, and the explosion sound.
void explosion(const Vector& at);
// The blast effects with eight tracer streaks thrown out of `at` (mines).
void explosionWithStreaks(const Vector& at);
// A hazard's hit: when the victim's pain time has passed it takes `damage`
// of type -1, the zap sounds at `at` and the next hit waits 100 ms. True
// when it hit.
bool shock(GameBody& victim, int damage, const Vector& at);
// Sound `id` at a point; nothing without a game or sound system.
void sound(int id, const Vector& at);
// Unit vector from `from` to `to` in the plane, with the distance; zero
// vector and 0 when they coincide.
Vector towards(const Vector& from, const Vector& to, float& distance);
// The enemy's cash roll without the generic blood and gibs, for creatures
// that show a death effect of their own.
void cashRollOnly(EnemyBase& enemy);

}
