#pragma once
// A force field rather than a slab: fired, it vanishes (invisible, not
// solid) or reappears, and flips back "timeopen" ms after the last firing
// unless "triggeronce" is set.
#include "world/gamebody/GameBody.h"

class AlphaDoor : public GameBody {
public:
    AlphaDoor();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;
    void levelStart() override;
    void restored() override;

    float timeopen = 0.0f;
    bool startopen = false;
    bool triggeronce = false;
    bool triggered = false;
    bool isopen = false;
    float reverttime = 0.0f;

private:
    // Open: invisible and passable; closed: visible and solid.
    void takeState();
};
