#pragma once
// One live effect: an emitter (with an end point for beams) that emits pooled
// particles at its definition's flow rate, moves and draws them, and reports
// when it is dead. The particle manager creates, owns, steps and deletes
// systems; the specialised kinds change only how particles are placed and
// drawn.
#include <string>
#include <vector>

#include "particles/Particle.h"
#include "world/geometry/Vector.h"

class IRenderer;
class ParticleSystemObserver;
class ParticleSystemParams;

class ParticleSystem {
public:
    ParticleSystem() = default;
    ParticleSystem(const ParticleSystem&) = delete;
    ParticleSystem& operator=(const ParticleSystem&) = delete;
    virtual ~ParticleSystem();

    // Called once by the manager after it has set id, params and pool size:
    // allocates the pool and binds the texture. Overrides call the base first.
    virtual void init();
    virtual void deleteParticles();
    // Fills the next free pool slot; null when the pool is full.
    virtual Particle* addParticle(const Vector& position, const Vector& endPoint, const Vector& velocity,
                                  const Vector& acceleration, const Dimension& size,
                                  const Dimension& endSize, const RGBAColour& colour,
                                  const RGBAColour& colourVel, float lifeTime);
    // The manager's per-step call; `culled` systems only age. False once dead.
    virtual bool update(float dt, bool culled);
    virtual bool step(float dt, bool culled);
    // Runs for every live particle just before its own update; empty here.
    virtual void stepParticle(float dt, Particle& particle);
    // Draws the live particles; the manager has set blending and depth state.
    virtual void draw();
    virtual void emit(const Vector& from, const Vector& to, int count);
    virtual void emit(const Vector& from, const Vector& to, float ignored, int count);
    // One particle randomised from the definition, added with `to` as its end point.
    virtual void createParticle(const Vector& from, const Vector& to);
    // emitAlong from position to endPoint.
    virtual void emitAlongSegment();
    // Beam-like kinds place particles between the points; nothing here.
    virtual void emitAlong(const Vector& from, const Vector& to);
    // Runs after addParticle filled a slot, before the count grows; empty here.
    virtual void particleCreated(Particle& particle);
    virtual void setEndpoints(const Vector& from, const Vector& to);
    // The last live particle moves into the slot; returns the removed one.
    virtual Particle* removeParticle(int index);
    virtual void emitInitial();
    // Emission ends now; the system dies `seconds` later whatever is alive
    // (at its next step for 0 or less).
    virtual void stop(float seconds);
    // Spawn offset and velocity by the definition's generation shape.
    virtual void generate(const Vector& from, const Vector& to, Vector& outPosition, Vector& outVelocity);
    virtual void notifyObservers();
    virtual void removeObserver(ParticleSystemObserver* observer);
    // Fetches texture ids again after a video-mode change; kinds with extra
    // textures override and call the base first.
    virtual void reloadTextures();

    void addObserver(ParticleSystemObserver* observer);
    // Ends the system the way a holder lets go of it: stop(endOfLife).
    void end() { stop(endOfLife); }
    int getParticleCount() const { return activeCount; }
    const Particle& getParticle(int i) const { return pool[static_cast<size_t>(i)]; }
    const std::vector<ParticleSystemObserver*>& getObservers() const { return observers; }

    Vector position{0.0f, 0.0f, -2.0f};
    Vector endPoint;
    std::string texturePath;
    int textureId = -1;
    int maxParticles = 256;
    bool paused = false;
    double emitInterval = 0.0;
    float now = 0.0f, lastStep = 0.0f, lastEmit = 0.0f, firstStep = 0.0f;
    float age = 0.0f;
    float systemLifeTime = 0.0f;
    bool alive = false;
    bool dieWhenEmpty = false;
    float stopTimer = 0.0f;
    bool emitting = true;
    bool cullable = true;
    int id = -1;
    const ParticleSystemParams* params = nullptr;
    bool visible = true;
    int glowSteps = 1;
    // The stop time a holder gives when it lets go (end()).
    float endOfLife = 1.0f;
    // The renderer to bind and draw with; set by the manager before init.
    IRenderer* renderer = nullptr;

protected:
    // Binds an image (path under the game directory) clamped; its GL id.
    int loadTexture(const std::string& path, bool clamp = true);
    // The definition's texture, the fallback image when it is missing, or
    // texturing off for a definition without one.
    void bindOwnTexture();
    // A texture id fetched earlier, or the definition's texture when that
    // image could not be loaded.
    void bindVariant(int glId);
    // Each particle as a beam of its own width from its position to its end
    // point, its texture repeating every tileLength units (0: stretched once).
    void drawSegments(float tileLength);
    // The definition's blend mode: 2 alpha, anything else additive.
    void setBlendMode();

    // Scrolling textures must repeat instead.
    bool clampTexture = true;
    int activeCount = 0;
    std::vector<Particle> pool;
    std::vector<ParticleSystemObserver*> observers;
};
