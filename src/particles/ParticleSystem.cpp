#include "particles/ParticleSystem.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "particles/ParticleSystemObserver.h"
#include "particles/ParticleSystemParams.h"
#include "particles/ParticleRandom.h"
#include "render/IRenderer.h"
#include "resources/ResourceManager.h"

namespace {
// Uniform in [lo, hi] from the effects' own seeded generator, so tests can replay it.
float randomBetween(float lo, float hi)
{
    return lo + (hi - lo) * static_cast<float>(ParticleRandom::unit());
}

// A step that lands on the emission interval, give or take float rounding,
// still counts as reaching it.
constexpr double intervalTolerance = 1e-5;
}

ParticleSystem::~ParticleSystem() { deleteParticles(); }

void ParticleSystem::init()
{
    deleteParticles();
    maxParticles = std::max(0, std::min(maxParticles, ParticleSystemParams::maxPoolSize));
    // Slots are made as they are first needed: most systems never come near
    // their cap, and building the whole pool up front cost more than the
    // effect itself. The room is taken whole so particles never move.
    pool.reserve(static_cast<size_t>(maxParticles));
    activeCount = 0;
    alive = true;
    if (params && !params->texture.empty()) {
        texturePath = "data/" + params->texture;
        textureId = loadTexture(texturePath, clampTexture);
    }
}

int ParticleSystem::loadTexture(const std::string& path, bool clamp)
{
    if (!renderer)
        return -1;
    const std::string native = ResourceManager::toNativePath(path);
    renderer->bindTexture(native, clamp);
    return renderer->getTextureId(native);
}

void ParticleSystem::reloadTextures()
{
    if (!texturePath.empty())
        textureId = loadTexture(texturePath, clampTexture);
}

void ParticleSystem::deleteParticles()
{
    pool.clear();
    pool.shrink_to_fit();
    activeCount = 0;
}

Particle* ParticleSystem::addParticle(const Vector& at, const Vector& to, const Vector& velocity,
                                      const Vector& acceleration, const Dimension& size,
                                      const Dimension& endSize, const RGBAColour& colour,
                                      const RGBAColour& colourVel, float lifeTime)
{
    if (activeCount >= maxParticles)
        return nullptr;
    if (static_cast<size_t>(activeCount) == pool.size() && pool.size() < pool.capacity())
        pool.emplace_back();
    if (static_cast<size_t>(activeCount) >= pool.size()) {
        std::printf("NULL PARTICLE, eh?? %d\n", activeCount);
        return nullptr;
    }
    Particle& p = pool[static_cast<size_t>(activeCount)];
    p.position.set(at.x, at.y, 2.0f);
    p.endPoint = to;
    p.velocity = velocity;
    p.acceleration = acceleration;
    p.setSize(size.width, size.height);
    p.setEndSize(endSize.width, endSize.height);
    p.setSizeVelocity();
    p.colour = colour;
    p.colourVel = colourVel;
    p.alive = true;
    p.immortal = false;
    p.age = 0.0f;
    p.lifeTime = lifeTime;
    p.glowSteps = glowSteps;
    lastEmit = age;
    particleCreated(p);
    ++activeCount;
    return &p;
}

bool ParticleSystem::update(float dt, bool culled) { return step(dt, culled); }

bool ParticleSystem::step(float dt, bool culled)
{
    age += dt;
    now = age;
    if (stopTimer > 0.0f) {
        stopTimer -= dt;
        if (stopTimer <= 0.0f)
            alive = false;
    }
    if (systemLifeTime > 0.0f && age > systemLifeTime)
        alive = false;
    if (!alive)
        return false;
    if (culled)
        return true;

    const int flowRate = params ? params->flowRate : 0;
    if (!paused && emitting && flowRate > 0) {
        const double wanted = static_cast<double>(dt) * flowRate;
        const int room = maxParticles - activeCount;
        int n = static_cast<int>(std::min(std::floor(wanted), static_cast<double>(room)));
        emitInterval = 1.0 / flowRate;
        if (n < 1 && now - lastEmit >= emitInterval - intervalTolerance)
            n = 1;
        // A system whose first step is shorter than the interval still
        // shows something at once, with the chance the step deserves.
        if (n < 1 && ParticleRandom::unit() < wanted - n && now - firstStep < emitInterval)
            n = 1;
        n = std::min(n, room);
        if (n > 0)
            emit(position, position, 1.0f, n);
    }

    for (int i = 0; i < activeCount;) {
        Particle& p = pool[static_cast<size_t>(i)];
        stepParticle(dt, p);
        if (!p.update(dt))
            removeParticle(i);
        else
            ++i;
    }
    lastStep = now;
    // Systems that emit only on request are over once their last particle is.
    if (activeCount == 0 && dieWhenEmpty)
        alive = false;
    return alive;
}

void ParticleSystem::stepParticle(float, Particle&) {}

void ParticleSystem::bindOwnTexture()
{
    renderer->setTexturing(true);
    if (textureId >= 0)
        renderer->bindTextureId(textureId);
    else if (!texturePath.empty())
        renderer->bindTexture(texturePath, clampTexture); // missing image: the fallback
    else
        renderer->setTexturing(false);
}

void ParticleSystem::bindVariant(int glId)
{
    if (glId >= 0)
        renderer->bindTextureId(glId);
    else
        bindOwnTexture();
}

void ParticleSystem::setBlendMode()
{
    renderer->setBlending(true);
    if (params && params->blendMode == 2)
        renderer->setAlphaBlend();
    else
        renderer->setAdditiveBlend();
}

void ParticleSystem::draw()
{
    if (!renderer)
        return;
    bindOwnTexture();
    setBlendMode();
    renderer->beginQuads();
    for (int i = 0; i < activeCount; ++i)
        pool[static_cast<size_t>(i)].draw(*renderer);
    renderer->endQuads();
    renderer->setTexturing(true);
}

void ParticleSystem::drawSegments(float tileLength)
{
    if (!renderer)
        return;
    bindOwnTexture();
    setBlendMode();
    for (int i = 0; i < activeCount; ++i) {
        const Particle& p = pool[static_cast<size_t>(i)];
        renderer->setColour(p.colour);
        const float z = p.position.z + 0.2f;
        if (tileLength > 0.0f)
            renderer->drawTiledBeam(p.position, p.endPoint, z, p.width, tileLength, true, false);
        else
            renderer->drawBeam(p.position, p.endPoint, z, p.width, true, false);
    }
}

void ParticleSystem::emit(const Vector& from, const Vector& to, int count)
{
    // Never more attempts than free slots: a huge count costs nothing.
    count = std::min(count, maxParticles - activeCount);
    for (int i = 0; i < count; ++i)
        createParticle(from, to);
}

void ParticleSystem::emit(const Vector& from, const Vector& to, float, int count) { emit(from, to, count); }

void ParticleSystem::createParticle(const Vector& from, const Vector& to)
{
    if (!params)
        return;
    const ParticleSystemParams& d = *params;
    Vector at, velocity;
    generate(from, to, at, velocity);
    const Vector acceleration(d.acc.x + randomBetween(d.accVarLow.x, d.accVarHigh.x),
                              d.acc.y + randomBetween(d.accVarLow.y, d.accVarHigh.y),
                              d.acc.z + randomBetween(d.accVarLow.z, d.accVarHigh.z));
    const RGBAColour colour(d.colour.r + randomBetween(d.colourVarLow.r, d.colourVarHigh.r),
                            d.colour.g + randomBetween(d.colourVarLow.g, d.colourVarHigh.g),
                            d.colour.b + randomBetween(d.colourVarLow.b, d.colourVarHigh.b),
                            d.colour.a + randomBetween(d.colourVarLow.a, d.colourVarHigh.a));
    const RGBAColour colourVel(d.colourVel.r + randomBetween(d.colourVelVarLow.r, d.colourVelVarHigh.r),
                               d.colourVel.g + randomBetween(d.colourVelVarLow.g, d.colourVelVarHigh.g),
                               d.colourVel.b + randomBetween(d.colourVelVarLow.b, d.colourVelVarHigh.b),
                               d.colourVel.a + randomBetween(d.colourVelVarLow.a, d.colourVelVarHigh.a));
    const Dimension size(d.dimension.width + randomBetween(d.dimensionVarLow.width, d.dimensionVarHigh.width),
                         d.dimension.height + randomBetween(d.dimensionVarLow.height, d.dimensionVarHigh.height));
    const Dimension endSize(
        d.endDimension.width + randomBetween(d.endDimensionVarLow.width, d.endDimensionVarHigh.width),
        d.endDimension.height + randomBetween(d.endDimensionVarLow.height, d.endDimensionVarHigh.height));
    Particle* p = addParticle(at, to, velocity, acceleration, size, endSize, colour, colourVel, d.particleLifeTime);
    if (p && d.particleLifeTime == -1.0f)
        p->immortal = true;
}

void ParticleSystem::emitAlongSegment() { emitAlong(position, endPoint); }

void ParticleSystem::emitAlong(const Vector&, const Vector&) {}

void ParticleSystem::particleCreated(Particle&) {}

void ParticleSystem::setEndpoints(const Vector& from, const Vector& to)
{
    position = from;
    endPoint = to;
}

Particle* ParticleSystem::removeParticle(int index)
{
    if (index < 0 || index >= activeCount)
        return nullptr;
    const size_t last = static_cast<size_t>(activeCount - 1);
    std::swap(pool[static_cast<size_t>(index)], pool[last]);
    --activeCount;
    return &pool[last];
}

void ParticleSystem::emitInitial()
{
    if (params)
        emit(position, position, 1.0f, params->initialParticles);
}

void ParticleSystem::stop(float seconds)
{
    emitting = false;
    stopTimer = seconds;
    // No delay means now: an endless system must not linger empty forever.
    if (!(seconds > 0.0f))
        alive = false;
}

void ParticleSystem::generate(const Vector& from, const Vector&, Vector& outPosition, Vector& outVelocity)
{
    const ParticleSystemParams& d = *params;
    outPosition.set(from.x + randomBetween(d.posVarLow.x, d.posVarHigh.x),
                    from.y + randomBetween(d.posVarLow.y, d.posVarHigh.y),
                    from.z + randomBetween(d.posVarLow.z, d.posVarHigh.z));
    if (d.generationShape == "sphere") {
        const double degrees = ParticleRandom::next() / (static_cast<double>(ParticleRandom::max) + 1.0) * 360.0 + 90.0;
        const double a = degrees * 3.14159265358979323846 / 180.0;
        outVelocity.set(static_cast<float>(-std::cos(a)) * d.vel.x + randomBetween(d.velVarLow.x, d.velVarHigh.x),
                        static_cast<float>(-std::sin(a)) * d.vel.y + randomBetween(d.velVarLow.y, d.velVarHigh.y),
                        0.0f);
    } else {
        outVelocity.set(d.vel.x + randomBetween(d.velVarLow.x, d.velVarHigh.x),
                        d.vel.y + randomBetween(d.velVarLow.y, d.velVarHigh.y), d.vel.z);
    }
    outVelocity.z += randomBetween(d.velVarLow.z, d.velVarHigh.z);
}

void ParticleSystem::addObserver(ParticleSystemObserver* observer)
{
    if (observer && std::find(observers.begin(), observers.end(), observer) == observers.end())
        observers.push_back(observer);
}

void ParticleSystem::notifyObservers()
{
    // An observer may remove itself while being told.
    const std::vector<ParticleSystemObserver*> told = observers;
    for (ParticleSystemObserver* o : told)
        o->systemFinished(this);
}

void ParticleSystem::removeObserver(ParticleSystemObserver* observer)
{
    const auto it = std::find(observers.begin(), observers.end(), observer);
    if (it != observers.end())
        observers.erase(it);
}
