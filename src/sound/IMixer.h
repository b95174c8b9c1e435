#pragma once
// The handful of SDL_mixer calls the sound system makes, behind an interface
// so the channel bookkeeping, caps and fades can be tested without an audio
// device. SdlMixer is the real one; tests substitute a scripted fake.
#include <cstddef>
#include <cstdint>
#include <string>

struct Mix_Chunk;
typedef struct _Mix_Music Mix_Music;

class IMixer {
public:
    // The format the device actually runs at; decoded chunks match it.
    struct Spec {
        int frequency = 0;
        uint16_t format = 0;
        int channels = 0;
        bool operator==(const Spec& o) const
        {
            return frequency == o.frequency && format == o.format && channels == o.channels;
        }
        bool operator!=(const Spec& o) const { return !(*this == o); }
    };

    virtual ~IMixer() = default;

    // Opens the device for signed 16-bit little-endian output; false with
    // lastError() set when it cannot.
    virtual bool open(int frequency, int channels, int bufferSize) = 0;
    // Closing a device that is not open does nothing.
    virtual void close() = 0;
    // False while no device is open.
    virtual bool querySpec(Spec& spec) const = 0;
    virtual int allocateChannels(int count) = 0;
    // Keeps channels 0 to count - 1 from automatic choice; returns how many.
    virtual int reserveChannels(int count) = 0;
    // Tags channels from..to; returns how many were tagged.
    virtual int groupChannels(int from, int to, int tag) = 0;
    // Decodes a WAV or Ogg Vorbis file held in memory into the device format;
    // null with lastError() set when it cannot. Needs an open device.
    virtual Mix_Chunk* decode(const char* bytes, std::size_t size) = 0;
    virtual void freeChunk(Mix_Chunk* chunk) = 0;
    // Plays on `channel`, or the first free unreserved one for -1; returns the
    // channel or -1.
    virtual int playChannel(int channel, Mix_Chunk* chunk, int loops) = 0;
    virtual void haltChannel(int channel) = 0;
    // -1 sets every channel.
    virtual void setChannelVolume(int channel, int volume) = 0;
    virtual bool isPlaying(int channel) const = 0;
    // 255 is full volume for that ear; 255, 255 is the centre.
    virtual void setPanning(int channel, int left, int right) = 0;
    virtual std::string lastError() const = 0;

    // The music channel: one stream, decoded as it plays from bytes that
    // must outlive it. Null with lastError() set when it cannot be read.
    virtual Mix_Music* loadMusic(const char* bytes, std::size_t size) = 0;
    virtual void freeMusic(Mix_Music* music) = 0;
    virtual bool fadeInMusic(Mix_Music* music, int loops, int ms) = 0;
    virtual void fadeOutMusic(int ms) = 0;
    virtual void haltMusic() = 0;
    // True while a stream plays, fades or is paused.
    virtual bool isMusicPlaying() const = 0;
    virtual void pauseMusic() = 0;
    virtual void resumeMusic() = 0;
    virtual void setMusicVolume(int volume) = 0;
};
