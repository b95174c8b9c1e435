#pragma once
// Floating text in the world ("Checkpoint", cash amounts): each particle is
// one copy of the text, moved and faded by the definition. Its owner sets the
// text and font before emitting.
#include <string>

#include "particles/ParticleSystem.h"

class TextParticleSystem : public ParticleSystem {
public:
    TextParticleSystem();
    // Centred on each particle, with an optional black shadow.
    void draw() override;
    // One particle at from.
    void emitAlong(const Vector& from, const Vector& to) override;

    std::string text = "debug";
    std::string font = "vera";
    int fontSize = 18;
    bool shadow = true;
    float scale = 1.0f;
};
