#pragma once
// Level-logic tests: the headless gameplay game with a sound system that
// remembers what it was asked to play, a level clock the test sets directly,
// and a body that records who fired it.
#include <string>
#include <utility>
#include <vector>

#include "gameplay/GameplaySingleton.h"
#include "gameplay/GameplayFixture.h"
#include "render/GameHUD.h"
#include "sound/NullSound.h"
#include "world/gamebody/GameBody.h"

class LogicSound : public NullSound {
public:
    int playIdAt(int id, const Vector&, int) override
    {
        ids.push_back(id);
        return -1;
    }
    int playAt(const Vector&, const std::string& name, int, int) override
    {
        names.push_back(name);
        return nextChannel;
    }
    void stopChannel(int channel) override { stopped.push_back(channel); }

    std::vector<int> ids;
    std::vector<std::string> names;
    std::vector<int> stopped;
    int nextChannel = 3;
};

// Remembers every activator that fired it.
class TriggerRecorder : public GameBody {
public:
    void onTriggered(GameBody* activator) override { activators.push_back(activator); }
    std::vector<GameBody*> activators;
};

class LogicFixture : public GameplayFixture {
protected:
    std::unique_ptr<ISound> makeSound() override
    {
        auto made = std::make_unique<LogicSound>();
        sound = made.get();
        return made;
    }

    // A small non-solid entity at (x, y) with level attributes and targets.
    static std::string entity(const std::string& type, const std::string& id, float x, float y,
                              const std::string& attributes = "", const std::string& targets = "",
                              float half = 4.0f)
    {
        return box(type, id, x - half, y - half, x + half, y + half,
                   "mass=\"0\" solid=\"false\" entity=\"true\" targets=\"" + targets + "\"", attributes);
    }

    template <class T>
    T* find(const std::string& id)
    {
        for (Body* body : game->getBodies())
            if (body->id == id)
                return dynamic_cast<T*>(body);
        return nullptr;
    }

    // A recorder in the world under `id`.
    TriggerRecorder* addRecorder(const std::string& id)
    {
        auto* recorder = new TriggerRecorder();
        recorder->id = id;
        return spawn(recorder, -900.0f, 500.0f, 8.0f);
    }

    // Sets the level clock to `ms` after the level start.
    static void at(float ms)
    {
        BasicTimer& t = GameplaySingleton::get().levelTimer;
        t.currentTime = t.startTime + ms;
    }
    // The clock at `ms`, then one think of `body`.
    static void thinkAt(Body& body, float ms)
    {
        at(ms);
        body.think(0.025f);
    }

    static std::string lastHudMessage()
    {
        GameHUD* hud = GameplaySingleton::get().hud;
        return hud && !hud->getMessages().empty() ? hud->getMessages().back().text : "";
    }

    LogicSound* sound = nullptr;
};
