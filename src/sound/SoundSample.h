#pragma once
// One loaded sound file: its decoded chunk and the playback settings it was
// registered with. A sample is decoded once and shared by every id and name
// that refers to its path.
#include <string>

struct Mix_Chunk;
class IMixer;

class SoundSample {
public:
    explicit SoundSample(IMixer& mixer) : mixer(&mixer) {}
    virtual ~SoundSample();
    SoundSample(const SoundSample&) = delete;
    SoundSample& operator=(const SoundSample&) = delete;

    // Takes ownership of `decoded`, releasing the chunk held before.
    void setChunk(Mix_Chunk* decoded);
    Mix_Chunk* getChunk() const { return chunk; }

    int id = -1;              // id it was registered under
    int channel = -1;         // mixing channel to play on; -1 = first free
    int volume = 100;         // percent of the master volume when positional
    bool positional = false;
    std::string path;         // the file, for decoding again after a format change

private:
    IMixer* mixer;
    Mix_Chunk* chunk = nullptr;  // owned; null until the device is open
};
