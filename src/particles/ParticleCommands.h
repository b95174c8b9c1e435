#pragma once
// Console commands for effect authors: start any definition where the mouse
// points, list the definitions, and reload the definitions file while the
// game runs.
#include <string>

class Game;
class ParticleManager;
class ParticleSystem;
class Vector;

namespace ParticleCommands {
void registerAll(Game& game);
// Starts the definition as the game would: beams (rail, tracer, lightning,
// plasma) from `from` to `to`, text at `to`, everything else at `to` with
// its initial burst. Null when not even "default" exists.
ParticleSystem* startAt(ParticleManager& manager, const std::string& name, const Vector& from, const Vector& to);
}
