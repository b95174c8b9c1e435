#include "particles/ParticleManager.h"

#include <tinyxml.h>

#include <cstdio>
#include <vector>

#include "particles/LightningParticleSystem.h"
#include "particles/ParticleSystem.h"
#include "particles/ParticleSystemObserver.h"
#include "particles/PlasmaParticleSystem.h"
#include "particles/RailParticleSystem.h"
#include "particles/TextParticleSystem.h"
#include "particles/TracerParticleSystem.h"
#include "render/Frustum.h"
#include "render/IRenderer.h"
#include "resources/ResourceManager.h"

ParticleManager::ParticleManager() = default;

ParticleManager::~ParticleManager() { clear(); }

void ParticleManager::init() { createDefaultDefinition(); }

void ParticleManager::clear()
{
    removeAllSystems();
    definitions.clear();
}

void ParticleManager::createDefaultDefinition()
{
    auto d = std::make_unique<ParticleSystemParams>();
    d->id = "default";
    d->texture = "particles/defaultparticle.tga";
    d->maxParticles = 32;
    d->initialParticles = 0;
    d->glowSteps = 1;
    d->flowRate = 50;
    d->vel.set(5.0f, 5.0f, 0.0f);
    d->colour.set(255.0f, 255.0f, 255.0f, 255.0f);
    d->dimension.set(8.0f, 8.0f);
    d->endDimension.set(8.0f, 8.0f);
    d->systemLifeTime = 2.0f;
    d->particleLifeTime = 1.0f;
    d->blendMode = 1;
    d->generationShape = "point";
    definitions["default"] = std::move(d);
}

bool ParticleManager::loadDefinitions(const std::string& path)
{
    const std::string native = ResourceManager::toNativePath(path);
    TiXmlDocument document;
    if (!ResourceManager::instance().loadDocument(document, native) || !document.FirstChildElement()) {
        std::printf("Could not load particle defs file: %s\n", native.c_str());
        return false;
    }
    // Live systems point at the records a reload would replace.
    removeAllSystems();
    const TiXmlElement* root = document.FirstChildElement();
    int count = 0;
    for (const TiXmlElement* e = root->FirstChildElement(); e; e = e->NextSiblingElement()) {
        auto d = std::make_unique<ParticleSystemParams>();
        std::vector<std::string> missing;
        d->read(*e, missing);
        if (!e->Attribute("id")) {
            std::printf("Particle def on line %d has no id; skipped\n", e->Row());
            continue;
        }
        if (!missing.empty()) {
            std::string names;
            for (const std::string& m : missing)
                names += (names.empty() ? "" : ", ") + m;
            std::printf("Particle def %s lacks %s; read as zero\n", d->id.c_str(), names.c_str());
        }
        const std::string id = d->id;
        definitions[id] = std::move(d);
        ++count;
    }
    std::printf("Loaded %d particle defs from %s\n", count, native.c_str());
    return true;
}

const ParticleSystemParams* ParticleManager::findDefinition(const std::string& id) const
{
    const auto it = definitions.find(id);
    return it == definitions.end() ? nullptr : it->second.get();
}

ParticleSystem* ParticleManager::createSystem(const std::string& id)
{
    const ParticleSystemParams* params = findDefinition(id);
    if (!params) {
        std::printf("Couldn't find particle def %s, falling back to default\n", id.c_str());
        params = findDefinition("default");
        if (!params)
            return nullptr;
    }
    std::unique_ptr<ParticleSystem> system = createSystemOfType(id);
    system->id = nextSystemId++;
    system->params = params;
    system->systemLifeTime = params->systemLifeTime;
    system->maxParticles = params->maxParticles;
    system->renderer = renderer;
    system->init();
    systems.push_back(std::move(system));
    return systems.back().get();
}

std::unique_ptr<ParticleSystem> ParticleManager::createSystemOfType(const std::string& id)
{
    if (id == "rail")
        return std::make_unique<RailParticleSystem>();
    if (id == "tracer")
        return std::make_unique<TracerParticleSystem>();
    if (id == "lightning")
        return std::make_unique<LightningParticleSystem>();
    if (id == "plasma")
        return std::make_unique<PlasmaParticleSystem>();
    if (id == "text")
        return std::make_unique<TextParticleSystem>();
    return std::make_unique<ParticleSystem>();
}

int ParticleManager::countParticles() const
{
    int total = 0;
    for (const auto& s : systems)
        total += s->getParticleCount();
    return total;
}

bool ParticleManager::isOutsideView(const ParticleSystem& system) const
{
    if (!system.cullable || !renderer)
        return false;
    return renderer->getFrustum().classifyPoint(system.position) == Frustum::Outside;
}

void ParticleManager::finish(std::unique_ptr<ParticleSystem>& system)
{
    system->notifyObservers();
    system.reset();
}

void ParticleManager::update(float dt)
{
    for (auto it = systems.begin(); it != systems.end();) {
        ParticleSystem& s = **it;
        bool culled = isOutsideView(s);
        if (!s.visible || (culled && s.age + dt - s.lastStep > culledStepSeconds))
            culled = false;
        if (s.update(dt, culled)) {
            ++it;
            continue;
        }
        // Observers may create systems; they land at the end, after `it`.
        finish(*it);
        it = systems.erase(it);
    }
}

void ParticleManager::draw()
{
    if (!renderer)
        return;
    renderer->setBlending(true);
    renderer->setTexturing(true);
    renderer->setDepthWrites(false);
    for (const auto& s : systems)
        if (s->visible && s->alive && !isOutsideView(*s))
            s->draw();
    renderer->setDepthWrites(true);
    renderer->setBlending(true);
    renderer->setAlphaBlend();
}

void ParticleManager::reloadTextures()
{
    for (const auto& s : systems)
        s->reloadTextures();
}

void ParticleManager::removeAllSystems()
{
    // Holders (bodies following a system) must forget it before it goes.
    std::list<std::unique_ptr<ParticleSystem>> doomed;
    doomed.swap(systems);
    for (auto& s : doomed)
        finish(s);
}
