#include "world/logic/WaveController.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstdio>

#include "core/Game.h"
#include "resources/ResourceManager.h"
#include "world/level/LevelLoader.h"
#include "world/level/LevelValues.h"

namespace {
// A listed body may have died and been deleted since the file was read.
bool stillInWorld(const GameBody* body)
{
    Game* game = Game::current();
    if (!body || !game)
        return body != nullptr;
    const auto& bodies = game->getBodies();
    return std::find(bodies.begin(), bodies.end(), body) != bodies.end();
}
}

WaveController::WaveController()
{
    type = "wavecontroller";
    showdamage = false;
    thinks = true;
    thinkInterval = 200.0f;
    setTraceThrough(true);
}

std::unique_ptr<Body> WaveController::clone() const { return std::make_unique<WaveController>(); }

void WaveController::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs)
        if (sameName(name, "wavefile"))
            wavefile = value;
}

void WaveController::readState(TiXmlElement* element)
{
    GameBody::readState(element);
    if (!element)
        return;
    active = readBool(attributeText(element, "active"));
    starttime = readFloat(attributeText(element, "starttime"));
}

void WaveController::writeState(TiXmlElement* element)
{
    GameBody::writeState(element);
    if (!element)
        return;
    element->SetAttribute("active", writeBool(active));
    element->SetAttribute("starttime", writeFloat(starttime));
}

void WaveController::onTriggered(GameBody*)
{
    active = true;
    starttime = now();
}

void WaveController::think(float dt)
{
    GameBody::think(dt);
    if (!active)
        return;
    const float elapsed = now() - starttime;
    // Firing may spawn or kill bodies but never touches this list.
    size_t fired = 0;
    while (fired < entries.size() && entries[fired].time < elapsed) {
        if (stillInWorld(entries[fired].body))
            entries[fired].body->onTriggered(this);
        ++fired;
    }
    entries.erase(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(fired));
}

void WaveController::afterTargets()
{
    GameBody::afterTargets();
    loadWaveFile();
}

void WaveController::loadWaveFile()
{
    Game* game = Game::current();
    loadWaveFile(game ? game->getBodies() : std::list<Body*>());
}

void WaveController::loadWaveFile(const std::list<Body*>& bodies)
{
    entries.clear();
    // Wave file names are written like level names, sub-folders with "\".
    std::string name = wavefile;
    std::replace(name.begin(), name.end(), '/', '\\');
    TiXmlDocument document;
    if (name.empty() || !ResourceManager::instance().loadDocument(document, LevelLoader::resourcePath(name)) ||
        !document.RootElement()) {
        std::printf("Could not load wave file: %s\n", name.c_str());
        return;
    }
    for (TiXmlElement* event = document.RootElement()->FirstChildElement("event"); event;
         event = event->NextSiblingElement("event")) {
        const float time = readFloat(attributeText(event, "time"));
        const std::string target = attributeText(event, "target");
        for (Body* body : bodies) {
            auto* gameBody = dynamic_cast<GameBody*>(body);
            if (gameBody && gameBody->id == target)
                entries.push_back({time, gameBody});
        }
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.time < b.time; });
    if (active) {
        const float elapsed = now() - starttime;
        entries.erase(std::remove_if(entries.begin(), entries.end(),
                                     [elapsed](const Entry& e) { return e.time < elapsed; }),
                      entries.end());
    }
}
