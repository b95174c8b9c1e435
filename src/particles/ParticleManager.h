#pragma once
// Every visual effect is a particle system made from a named definition. The
// manager reads the definitions file once, creates systems by definition
// name, owns every live system, steps them in fixed particle steps, culls
// them against the view and draws them. Holders of a system may place it,
// stop it or observe its end, but never delete it.
#include <list>
#include <map>
#include <memory>
#include <string>

#include "particles/ParticleSystemParams.h"

class IRenderer;
class ParticleSystem;

class ParticleManager {
public:
    // Culled systems still simulate at least this often.
    static constexpr float culledStepSeconds = 0.1f;

    ParticleManager();
    ParticleManager(const ParticleManager&) = delete;
    ParticleManager& operator=(const ParticleManager&) = delete;
    virtual ~ParticleManager();

    // Adds the built-in definition "default".
    virtual void init();
    // Deletes every system (telling their observers) and every definition.
    virtual void clear();
    virtual void createDefaultDefinition();
    // Reads every child of the file's root element as a definition; a later
    // id replaces an earlier one. A missing or broken file is logged.
    virtual bool loadDefinitions(const std::string& path);
    // A configured, initialised system of the definition, owned by the
    // manager; "default" stands in for an unknown id (the class still follows
    // the requested id). Null only when "default" is missing too.
    virtual ParticleSystem* createSystem(const std::string& id);
    // The class by exact id: rail, tracer, lightning, plasma, text, else plain.
    virtual std::unique_ptr<ParticleSystem> createSystemOfType(const std::string& id);
    virtual int countParticles() const;
    // One particle step; dead systems are reported to their observers and deleted.
    virtual void update(float dt);
    virtual void draw();
    // After a video-mode change every system fetches its textures again.
    virtual void reloadTextures();
    // Deletes every system (telling their observers); definitions stay.
    virtual void removeAllSystems();

    // The renderer systems bind and draw with, and whose frustum culls them.
    void setRenderer(IRenderer* r) { renderer = r; }
    IRenderer* getRenderer() const { return renderer; }
    const ParticleSystemParams* findDefinition(const std::string& id) const;
    const std::map<std::string, std::unique_ptr<ParticleSystemParams>>& getDefinitions() const
    {
        return definitions;
    }
    const std::list<std::unique_ptr<ParticleSystem>>& getSystems() const { return systems; }
    int getSystemCount() const { return static_cast<int>(systems.size()); }

private:
    bool isOutsideView(const ParticleSystem& system) const;
    // Tells the system's observers, then deletes it.
    void finish(std::unique_ptr<ParticleSystem>& system);

    std::map<std::string, std::unique_ptr<ParticleSystemParams>> definitions;
    std::list<std::unique_ptr<ParticleSystem>> systems;
    int nextSystemId = 0;
    IRenderer* renderer = nullptr;
};
