#pragma once
// A scripted mixer for sound tests: it "decodes" any bytes that start like a
// WAV or Ogg file, plays by marking channels busy and remembers the volume
// and panning last given to every channel; like SDL_mixer it forgets a
// channel's panning when its sound ends. Music fades out only when the test
// says the fade is over. Tests reach it through the pointer they kept.
#include <SDL_mixer.h>

#include <array>
#include <cstring>
#include <string>

#include "sound/IMixer.h"
#include "sound/Sound.h"

class FakeMixer : public IMixer {
public:
    bool open(int frequency, int channelCount, int bufferSize) override
    {
        ++opens;
        if (!acceptOpen || frequency == refusedFrequency) {
            error = "no such device";
            return false;
        }
        opened = true;
        spec = {frequency, 0x8010, channelCount};
        lastBufferSize = bufferSize;
        return true;
    }
    void close() override
    {
        opened = false;
        busy.fill(false);
    }
    bool querySpec(Spec& out) const override
    {
        out = spec;
        return opened;
    }
    int allocateChannels(int count) override { return count; }
    int reserveChannels(int count) override { return count; }
    int groupChannels(int from, int to, int) override { return to - from + 1; }
    Mix_Chunk* decode(const char* bytes, std::size_t size) override
    {
        if (!opened || size < 4 || (std::memcmp(bytes, "RIFF", 4) != 0 && std::memcmp(bytes, "OggS", 4) != 0)) {
            error = "unknown format";
            return nullptr;
        }
        ++decodes;
        ++liveChunks;
        return new Mix_Chunk{};
    }
    void freeChunk(Mix_Chunk* chunk) override
    {
        --liveChunks;
        delete chunk;
    }
    int playChannel(int channel, Mix_Chunk*, int loops) override
    {
        if (!opened)
            return -1;
        if (channel == -1) {
            for (int i = 10; i < 32 && channel == -1; ++i)
                if (!busy[i])
                    channel = i;
            if (channel == -1)
                return -1;
        }
        busy[channel] = true;
        lastLoops = loops;
        return channel;
    }
    void haltChannel(int channel) override { finishChannel(channel); }
    void setChannelVolume(int channel, int volume) override
    {
        if (channel == -1)
            volumes.fill(volume);
        else
            volumes[channel] = volume;
    }
    bool isPlaying(int channel) const override { return busy[channel]; }
    void setPanning(int channel, int left, int right) override
    {
        pans[channel] = {left, right};
        ++panCalls;
    }
    std::string lastError() const override { return error; }

    Mix_Music* loadMusic(const char* bytes, std::size_t size) override
    {
        if (!opened || size < 4 || std::memcmp(bytes, "OggS", 4) != 0) {
            error = "not a music file";
            return nullptr;
        }
        ++liveMusic;
        return reinterpret_cast<Mix_Music*>(new char[1]);
    }
    void freeMusic(Mix_Music* music) override
    {
        --liveMusic;
        delete[] reinterpret_cast<char*>(music);
    }
    bool fadeInMusic(Mix_Music*, int loops, int) override
    {
        musicPlaying = true;
        musicFadingOut = false;
        musicLoops = loops;
        ++musicStarts;
        return true;
    }
    void fadeOutMusic(int) override { musicFadingOut = musicPlaying; }
    void haltMusic() override { musicPlaying = musicFadingOut = false; }
    bool isMusicPlaying() const override { return musicPlaying; }
    void pauseMusic() override { musicPaused = true; }
    void resumeMusic() override { musicPaused = false; }
    void setMusicVolume(int volume) override { musicVolume = volume; }

    // The fade-out asked for has run its course.
    void finishFade()
    {
        if (musicFadingOut)
            musicPlaying = musicFadingOut = false;
    }

    // The sound on the channel has ended.
    void finishChannel(int channel)
    {
        busy[channel] = false;
        pans[channel] = {};
    }
    // Marks the first `count` channels playing, as if sounds were running.
    void fillChannels(int count)
    {
        for (int i = 0; i < count; ++i)
            busy[i] = true;
    }

    bool acceptOpen = true;
    int refusedFrequency = -1;
    bool opened = false;
    Spec spec;
    int opens = 0;
    int decodes = 0;
    int liveChunks = 0;
    int lastLoops = 0;
    int lastBufferSize = 0;
    std::array<bool, 32> busy{};
    std::array<int, 32> volumes{};
    std::array<Sound::Pan, 32> pans{};  // centred
    int panCalls = 0;
    std::string error;
    int liveMusic = 0;
    int musicStarts = 0;
    int musicLoops = 0;
    int musicVolume = -1;
    bool musicPlaying = false;
    bool musicFadingOut = false;
    bool musicPaused = false;
};
