#pragma once
// A plasma beam: one scrolling textured quad from the emitter to the end
// point, in one of four plasma textures. It emits only when asked and ends
// when the beam has faded.
#include "particles/ParticleSystem.h"
#include "world/geometry/Quad.h"
#include "world/geometry/TexCoord.h"

class PlasmaParticleSystem : public ParticleSystem {
public:
    PlasmaParticleSystem();
    void init() override;
    void draw() override;
    // The texture scrolls along the beam with the system's age.
    void stepParticle(float dt, Particle& particle) override;
    void emitAlong(const Vector& from, const Vector& to) override;
    void emitInitial() override;
    void particleCreated(Particle& particle) override;
    void reloadTextures() override;

    const TexCoord& getTexCoord(int corner) const { return texCoords[corner]; }

private:
    void resetTexCoords();

    int variantTextures[4] = {-1, -1, -1, -1};
    TexCoord texCoords[4];
    float scrollU = 0.0f, scrollV = 0.0f;
    Quad quad;
};
