#pragma once
// The skies behind the levels: every sky file a level names is loaded once
// and kept until the level is cleared; exactly one is current once any is
// loaded. Level bodies and the "sky" command select skies through here, and a
// switch fades the new sky in from black.
#include <memory>
#include <string>
#include <vector>

#include "render/BaseSky.h"
#include "render/SimpleFadeOverlay.h"

class IRenderer;
class ParticleManager;
class Vector;

class SkyManager {
public:
    // What a level that names no sky shows, and what "sky" alone selects.
    static constexpr const char* defaultSky = "data/sky/default.xml";

    SkyManager();
    SkyManager(const SkyManager&) = delete;
    SkyManager& operator=(const SkyManager&) = delete;
    virtual ~SkyManager();

    // Makes a loaded sky current (with the fade in); a sky not loaded is
    // reported and the current one stays.
    virtual void switchSky(const std::string& path);
    // Loads a sky file; true when it is loaded (already or now). The first
    // sky loaded becomes current.
    virtual bool loadSky(const std::string& path);
    // The same with a short name: "night" is "data/sky/night.xml".
    virtual void switchSkyByShortName(const std::string& name);
    virtual bool loadSkyByShortName(const std::string& name);
    virtual bool isReady() const { return true; }
    // Forgets every sky (level change).
    virtual void clear();
    // Draws the current sky around the camera; called by the Game each frame
    // before the bodies.
    virtual void draw(IRenderer& renderer, const Vector& camera, float frameTime);

    // Adds the folder and extension a short name lacks.
    static std::string pathForShortName(const std::string& name);
    // Where the skies' particle systems are created; none means no particles.
    void setParticleManager(ParticleManager* manager) { particles = manager; }
    const std::string& getCurrentPath() const;
    bool isLoaded(const std::string& path) const;
    BaseSky* getCurrentSky() const { return current; }
    const SimpleFadeOverlay* getFade() const { return fade.get(); }
    size_t getSkyCount() const { return skies.size(); }

private:
    BaseSky* find(const std::string& path) const;
    void makeCurrent(BaseSky* sky);

    std::vector<std::unique_ptr<BaseSky>> skies;
    BaseSky* current = nullptr;
    std::unique_ptr<SimpleFadeOverlay> fade;
    ParticleManager* particles = nullptr;
};
