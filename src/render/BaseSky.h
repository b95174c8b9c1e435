#pragma once
// One sky read from a sky file: its coloured rectangles (drawn in file order,
// fixed to the screen), an optional lens flare and the particle systems that
// belong to it (clouds, dust, stars), which it places and draws itself.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "particles/ParticleSystemObserver.h"
#include "render/LensFlare.h"
#include "render/SkyQuad.h"
#include "world/geometry/Vector.h"

class IRenderer;
class ParticleManager;
class ParticleSystem;
class TiXmlElement;

class BaseSky : public ParticleSystemObserver {
public:
    // Numbers outside these are treated as mistakes and clamped.
    static constexpr float maxCoordinate = 100000.0f;
    static constexpr float maxColourValue = 10000.0f;
    static constexpr int maxGlowSteps = 16;

    std::string name;
    std::vector<std::unique_ptr<SkyQuad>> rects;
    std::multimap<std::string, Vector> particlePlacements;
    std::vector<ParticleSystem*> particleSystems;
    bool lensFlareOn = false;
    LensFlare lensFlare;

    BaseSky() = default;
    BaseSky(const BaseSky&) = delete;
    BaseSky& operator=(const BaseSky&) = delete;
    ~BaseSky() override;

    // Reads the sky file through the resource manager; false (and a log
    // line) when it cannot be read.
    virtual bool load(const std::string& path);
    // Replaces this sky's contents with the description under `root`.
    bool parse(const TiXmlElement& root);
    // Draws the sky fixed around the camera, its colours moving on by frameTime.
    virtual void draw(IRenderer& renderer, const Vector& camera, float frameTime);
    // One rectangle: all its passes, advancing its colours once per pass.
    virtual void drawRect(IRenderer& renderer, float frameTime, SkyQuad& rect);

    // Creates the sky's systems (hidden from the manager's own drawing).
    void startParticles(ParticleManager& manager);
    // Lets the sky's systems die out.
    void stopParticles();
    void systemFinished(ParticleSystem* system) override;
};
