#pragma once
// The sound system as the rest of the game sees it: samples played by id or
// by file name, optionally positioned relative to the listener. Every play
// returns the mixing channel used, or -1 when nothing played (no device, an
// unknown sound, too many playing). "loops" is 0 for once, n for n + 1 times
// and -1 until the channel is stopped. Positional sounds also pan towards
// their side of the listener.
#include <string>

#include "world/geometry/Vector.h"

class ISound {
public:
    virtual ~ISound() = default;

    virtual bool openAudio() = 0;
    // Finds the sound variables, opens the device and registers the commands.
    virtual bool initialise() = 0;
    virtual void closeAudio() = 0;
    virtual void playTestSound() = 0;
    // Positional plays fade with distance when the sample is positional.
    virtual int playAt(const Vector& position, int sampleIndex, int loops) = 0;
    virtual int playAt(const Vector& position, const std::string& name, int loops, int volume) = 0;
    virtual int playOnChannelAt(int channel, const Vector& position, int sampleIndex, int loops) = 0;
    virtual int playOnChannelAt(int channel, const Vector& position, const std::string& name, int loops,
                                int volume) = 0;
    virtual int play(int sampleIndex, int loops) = 0;
    virtual int play(const std::string& name, int loops, int volume) = 0;
    virtual int playIdAt(int id, const Vector& position, int loops) = 0;
    virtual int playIdOnChannelAt(int id, int channel, const Vector& position, int loops) = 0;
    virtual int playId(int id, int loops) = 0;
    // 0 to 128; anything else is refused with a console message.
    virtual void setVolume(int volume) = 0;
    virtual void applyVolume() = 0;
    virtual int getVolume() const = 0;
    // Reopens the device with new settings, falling back to the previous ones.
    virtual bool restart(int frequency, int channels, int bufferSize) = 0;
    virtual void configure(int volume, int unused, int frequency, int channels, int bufferSize) = 0;
    virtual void getSettings(int& volume, int& unused, int& frequency, int& channels, int& bufferSize) const = 0;
    virtual int findSound(const std::string& name) const = 0;
    virtual int loadSound(const std::string& name) = 0;
    virtual void registerSound(int id, const std::string& name) = 0;
    virtual void registerSound(int id, int channel, int volume, bool positional, const std::string& name) = 0;
    // Registers every sound of a definitions file (data/sounds/sounds.xml).
    virtual bool loadDefinitions(const std::string& path) = 0;
    // Called by the Game once per frame with the player's position: fades
    // positional channels and counts the channels playing.
    virtual void update(const Vector& listener) = 0;
    virtual void stopChannel(int channel) = 0;

    // The music channel: one Ogg Vorbis track at a time, looping, the old
    // one faded out before the new one fades in. Asking for the track that
    // plays changes nothing. False (with a log line) when the file cannot
    // be read; what played before then fades to silence.
    virtual bool playMusic(const std::string& path) = 0;
    virtual void stopMusic() = 0;
    virtual void pauseMusic(bool paused) = 0;
};
