#pragma once
// Scripted waves: once fired, it fires the bodies its "wavefile" lists, each
// at its time (ms after the trigger). A wave file is
//   <waves><event time="2000" target="spawner_a"/>...</waves>
// and events with equal times fire in file order.
#include <list>
#include <string>
#include <vector>

#include "world/gamebody/GameBody.h"

class WaveController : public GameBody {
public:
    struct Entry {
        float time = 0.0f;
        GameBody* body = nullptr;
    };

    WaveController();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;
    void afterTargets() override;
    // Reads the wave file into the pending list, against the bodies of the
    // running game; a restored controller drops what already fired. Called
    // once the level's bodies exist.
    virtual void loadWaveFile();
    // The same against an explicit body list (tests, tools).
    void loadWaveFile(const std::list<Body*>& bodies);

    const std::vector<Entry>& getEntries() const { return entries; }

    std::string wavefile;
    bool active = false;
    float starttime = 0.0f;

private:
    std::vector<Entry> entries;
};
