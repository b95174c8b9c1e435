#include "render/SkyManager.h"

#include <algorithm>
#include <cstdio>

#include <tinyxml.h>

#include "resources/ResourceManager.h"

bool SkyManager::isLoaded(const std::string& path) const
{
    return std::find(loaded.begin(), loaded.end(), path) != loaded.end();
}

bool SkyManager::loadSky(const std::string& path)
{
    if (isLoaded(path))
        return true;
    TiXmlDocument doc;
    if (!ResourceManager::instance().loadDocument(doc, path)) {
        std::printf("Could not load sky file: %s\n", path.c_str());
        return false;
    }
    loaded.push_back(path);
    if (current.empty())
        current = path;
    return true;
}

void SkyManager::switchSky(const std::string& path)
{
    if (!isLoaded(path)) {
        std::printf("Tried to switch to a sky which hasn't been loaded: %s\n", path.c_str());
        return;
    }
    current = path;
}

void SkyManager::switchSkyByShortName(const std::string& name) { switchSky(pathForShortName(name)); }

bool SkyManager::loadSkyByShortName(const std::string& name) { return loadSky(pathForShortName(name)); }

void SkyManager::clear()
{
    loaded.clear();
    current.clear();
}

void SkyManager::draw(IRenderer&, const Vector&, float) {}
