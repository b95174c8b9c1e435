#include "render/SkyManager.h"

#include <cstdio>

#include "render/IRenderer.h"
#include "world/geometry/Vector.h"

SkyManager::SkyManager() = default;
SkyManager::~SkyManager() = default;

std::string SkyManager::pathForShortName(const std::string& name)
{
    const std::string folder = "data/sky/";
    const std::string ext = ".xml";
    std::string path = name.compare(0, folder.size(), folder) == 0 ? name : folder + name;
    if (path.size() < ext.size() || path.compare(path.size() - ext.size(), ext.size(), ext) != 0)
        path += ext;
    return path;
}

BaseSky* SkyManager::find(const std::string& path) const
{
    for (const auto& sky : skies)
        if (sky->name == path)
            return sky.get();
    return nullptr;
}

bool SkyManager::isLoaded(const std::string& path) const { return find(path) != nullptr; }

const std::string& SkyManager::getCurrentPath() const
{
    static const std::string none;
    return current ? current->name : none;
}

void SkyManager::makeCurrent(BaseSky* sky)
{
    if (current)
        current->stopParticles();
    current = sky;
    if (current && particles)
        current->startParticles(*particles);
}

bool SkyManager::loadSky(const std::string& path)
{
    if (isLoaded(path))
        return true;
    auto sky = std::make_unique<BaseSky>();
    if (!sky->load(path))
        return false;
    skies.push_back(std::move(sky));
    if (!current)
        makeCurrent(skies.back().get());
    return true;
}

void SkyManager::switchSky(const std::string& path)
{
    BaseSky* sky = find(path);
    if (!sky) {
        std::printf("Tried to switch to a sky which hasn't been loaded: %s\n", path.c_str());
        return;
    }
    makeCurrent(sky);
    fade = std::make_unique<SimpleFadeOverlay>(1.0f);
}

void SkyManager::switchSkyByShortName(const std::string& name) { switchSky(pathForShortName(name)); }

bool SkyManager::loadSkyByShortName(const std::string& name) { return loadSky(pathForShortName(name)); }

void SkyManager::clear()
{
    makeCurrent(nullptr);
    skies.clear();
    fade.reset();
}

void SkyManager::draw(IRenderer& renderer, const Vector& camera, float frameTime)
{
    if (!current)
        return;
    current->draw(renderer, camera, frameTime);
    // The fade covers only the sky: the level in front stays in view while
    // the new sky comes up out of black.
    if (fade) {
        fade->update(frameTime);
        fade->draw(renderer, frameTime);
        if (fade->isDone())
            fade.reset();
    }
}
