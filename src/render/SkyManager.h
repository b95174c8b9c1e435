#pragma once
// The skies behind the levels: every sky file a level names is loaded once
// and kept until the level is cleared; exactly one is current once any is
// loaded. Level bodies and the "sky" command select skies through here.
#include <string>
#include <vector>

class IRenderer;
class Vector;

class SkyManager {
public:
    virtual ~SkyManager() = default;

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

    static std::string pathForShortName(const std::string& name) { return "data/sky/" + name + ".xml"; }
    const std::string& getCurrentPath() const { return current; }
    bool isLoaded(const std::string& path) const;

private:
    std::vector<std::string> loaded;
    std::string current;
};
