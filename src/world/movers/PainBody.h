#pragma once
// A hurting zone (electrified floor, steam jet): while "on" it deals "pain"
// every 100 ms to what stands in it. Firing it flips it, and with
// "reverttimer" it flips back that many ms later.
#include "world/gamebody/GameBody.h"
#include "world/logic/TimedToggle.h"

class PainBody : public GameBody, public TimedToggle {
public:
    static constexpr float painInterval = 100.0f;

    PainBody();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void onTouch(TouchInfo& info) override;
    void onTriggered(GameBody* activator) override;
    void think(float dt) override;

    int pain = 0;
};
