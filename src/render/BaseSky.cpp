#include "render/BaseSky.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <tinyxml.h>

#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "render/IRenderer.h"
#include "resources/ResourceManager.h"
#include "world/geometry/TexCoord.h"

namespace {

float sane(float v, float limit) { return std::isfinite(v) ? std::clamp(v, -limit, limit) : 0.0f; }

std::string attr(const TiXmlElement& e, const char* key)
{
    const char* v = e.Attribute(key);
    return v ? v : "";
}

bool flag(const TiXmlElement& e, const char* key) { return attr(e, key) == "true"; }

// Absent or malformed text leaves `fallback`.
Vector readVector(const TiXmlElement& e, const char* key, const Vector& fallback = Vector())
{
    Vector v(fallback.x, fallback.y, fallback.z);
    v.fromString(attr(e, key));
    v.set(sane(v.x, BaseSky::maxCoordinate), sane(v.y, BaseSky::maxCoordinate), sane(v.z, BaseSky::maxCoordinate));
    return v;
}

RGBAColour readColour(const TiXmlElement& e, const char* key, const RGBAColour& fallback = RGBAColour())
{
    RGBAColour c(fallback);
    c.fromString(attr(e, key));
    const float m = BaseSky::maxColourValue;
    c.set(sane(c.r, m), sane(c.g, m), sane(c.b, m), sane(c.a, m));
    return c;
}

int readInt(const TiXmlElement& e, const char* key, int fallback)
{
    const std::string text = attr(e, key);
    if (text.empty())
        return fallback;
    const float v = sane(static_cast<float>(std::atof(text.c_str())), 1e6f);
    return static_cast<int>(v);
}

std::unique_ptr<SkyQuad> readRect(const TiXmlElement& e)
{
    auto rect = std::make_unique<SkyQuad>();
    const Vector pos = readVector(e, "pos");
    const Vector dim = readVector(e, "dimension");
    rect->textured = flag(e, "textured");
    rect->clamp = flag(e, "clamptex");
    rect->glow = flag(e, "glow");
    rect->texture = attr(e, "texture");
    rect->glowSteps = std::clamp(readInt(e, "glowsteps", 0), 0, BaseSky::maxGlowSteps);
    rect->blendStyle = readInt(e, "blendstyle", 1);
    rect->minColour = readColour(e, "mincol");
    // Without an upper bound the colours would be pinned to black.
    rect->maxColour = readColour(e, "maxcol", RGBAColour(255.0f, 255.0f, 255.0f, 255.0f));

    static const char* const colKeys[] = {"tlcol", "trcol", "brcol", "blcol"};
    static const char* const velKeys[] = {"tlcolvel", "trcolvel", "brcolvel", "blcolvel"};
    static const char* const texKeys[] = {"tltexcoord", "trtexcoord", "brtexcoord", "bltexcoord"};
    const float xs[] = {pos.x, pos.x + dim.x, pos.x + dim.x, pos.x};
    const float ys[] = {pos.y, pos.y, pos.y - dim.y, pos.y - dim.y};
    // Stretched once over the rectangle unless the file says otherwise.
    const TexCoord defaults[] = {{0.0f, 1.0f}, {1.0f, 1.0f}, {1.0f, 0.0f}, {0.0f, 0.0f}};
    for (size_t i = 0; i < 4; ++i) {
        const RGBAColour c = readColour(e, colKeys[i], RGBAColour(255.0f, 255.0f, 255.0f, 255.0f));
        TexCoord t = defaults[i];
        t.fromString(attr(e, texKeys[i]));
        rect->setCorner(i, xs[i], ys[i], pos.z, c.r, c.g, c.b, c.a, sane(t.u, BaseSky::maxCoordinate),
                        sane(t.v, BaseSky::maxCoordinate));
        rect->velocities[i] = readColour(e, velKeys[i]);
    }
    return rect;
}

} // namespace

BaseSky::~BaseSky() { stopParticles(); }

bool BaseSky::load(const std::string& path)
{
    TiXmlDocument doc;
    if (!ResourceManager::instance().loadDocument(doc, path) || !doc.RootElement()) {
        std::printf("Could not load sky file: %s\n", path.c_str());
        return false;
    }
    name = path;
    return parse(*doc.RootElement());
}

bool BaseSky::parse(const TiXmlElement& root)
{
    rects.clear();
    particlePlacements.clear();
    lensFlareOn = flag(root, "lensflare");
    lensFlare.position = readVector(root, "lensflarepos");
    lensFlare.colour = readColour(root, "lensflarecolour", RGBAColour(255.0f, 80.0f, 5.0f, 255.0f));
    for (const TiXmlElement* e = root.FirstChildElement(); e; e = e->NextSiblingElement()) {
        const std::string tag = e->ValueStr();
        if (tag == "rect")
            rects.push_back(readRect(*e));
        else if (tag == "particle" && !attr(*e, "id").empty())
            particlePlacements.emplace(attr(*e, "id"), readVector(*e, "pos"));
    }
    return true;
}

void BaseSky::startParticles(ParticleManager& manager)
{
    stopParticles();
    for (const auto& [id, pos] : particlePlacements) {
        ParticleSystem* system = manager.createSystem(id);
        if (!system)
            continue;
        // The sky draws these in its own camera-fixed frame, so the manager
        // must neither draw nor cull them.
        system->visible = false;
        system->cullable = false;
        const Vector at(pos.x, pos.y, pos.z + 0.2f);
        system->setEndpoints(at, at);
        system->emitInitial();
        system->addObserver(this);
        particleSystems.push_back(system);
    }
}

void BaseSky::stopParticles()
{
    for (ParticleSystem* system : particleSystems) {
        system->removeObserver(this);
        system->end();
    }
    particleSystems.clear();
}

void BaseSky::systemFinished(ParticleSystem* system)
{
    particleSystems.erase(std::remove(particleSystems.begin(), particleSystems.end(), system),
                          particleSystems.end());
}

void BaseSky::draw(IRenderer& renderer, const Vector& camera, float frameTime)
{
    // Nothing in the sky may hide the level drawn after it.
    renderer.setDepthWrites(false);
    renderer.pushMatrix();
    renderer.translate(-camera.x, -camera.y, 0.0f);
    renderer.setBlending(true);
    renderer.beginBackdrop(this);
    for (const auto& rect : rects) {
        renderer.setTexturing(rect->textured);
        // Blending a rectangle that covers what is behind it only costs time.
        renderer.setBlending(rect->blendStyle == 1 || !rect->isOpaque());
        if (rect->blendStyle == 1)
            renderer.setAdditiveBlend();
        else
            renderer.setAlphaBlend();
        drawRect(renderer, frameTime, *rect);
    }
    renderer.endBackdrop();
    renderer.setBlending(true);
    renderer.setAlphaBlend();
    if (lensFlareOn)
        lensFlare.draw(renderer);
    renderer.popMatrix();

    renderer.pushMatrix();
    renderer.translate(-camera.x, -camera.y, 0.0f);
    renderer.setBlending(true);
    renderer.setTexturing(true);
    renderer.setDepthWrites(false);
    for (ParticleSystem* system : particleSystems)
        if (system->alive)
            system->draw();
    renderer.setDepthWrites(true);
    renderer.setAlphaBlend();
    renderer.popMatrix();
}

void BaseSky::drawRect(IRenderer& renderer, float frameTime, SkyQuad& rect)
{
    if (rect.textured)
        renderer.bindTexture(rect.texture, rect.clamp);
    const int passes = rect.passCount();
    float weight = 1.0f;
    for (int pass = 0; pass < passes; ++pass) {
        for (size_t corner = 0; corner < SkyQuad::maxCorners; ++corner)
            rect.advanceCorner(corner, frameTime, weight);
        renderer.drawQuad(rect);
        if (rect.glowSteps > 0)
            weight -= 1.0f / static_cast<float>(rect.glowSteps);
    }
}
