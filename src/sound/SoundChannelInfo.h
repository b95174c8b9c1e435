#pragma once
// What the sound system knows about one mixing channel: whether it played at
// the last update and, for positional sounds, where the sound is and how loud
// it may get, so the channel can be faded as the listener moves.
#include "world/geometry/Vector.h"

class SoundChannelInfo {
public:
    virtual ~SoundChannelInfo() = default;

    bool playing = false;      // refreshed by every update
    bool positional = false;   // copied from the sample when play starts
    Vector position;           // where the sound is
    int sampleIndex = -1;
    int volume = 100;          // the sample's percent
    bool looping = false;      // started with loops -1 or at least 1
    int panLeft = 255;         // the panning last given to the mixer
    int panRight = 255;
};
