#pragma once
// An ambient sound source (humming machinery, dripping water): it plays its
// "sound" while the player is within earshot and stops when they leave.
#include "world/gamebody/GameBody.h"

class SoundBody : public GameBody {
public:
    // Squared earshot: 528 units.
    static constexpr float hearingRangeSquared = 278784.0f;

    SoundBody();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void think(float dt) override;

    bool isPlaying() const { return channel >= 0; }

    std::string sound;
    int volume = 128;
    int loops = -1;

private:
    int channel = -1;
};
