#pragma once
// IMixer over SDL_mixer: the audio device the game really plays through.
// SDL_mixer mixes on its own thread; every call here is made from the main
// thread.
#include "sound/IMixer.h"

class SdlMixer : public IMixer {
public:
    SdlMixer() = default;
    ~SdlMixer() override;
    SdlMixer(const SdlMixer&) = delete;
    SdlMixer& operator=(const SdlMixer&) = delete;

    bool open(int frequency, int channels, int bufferSize) override;
    void close() override;
    bool querySpec(Spec& spec) const override;
    int allocateChannels(int count) override;
    int reserveChannels(int count) override;
    int groupChannels(int from, int to, int tag) override;
    Mix_Chunk* decode(const char* bytes, std::size_t size) override;
    void freeChunk(Mix_Chunk* chunk) override;
    int playChannel(int channel, Mix_Chunk* chunk, int loops) override;
    void haltChannel(int channel) override;
    void setChannelVolume(int channel, int volume) override;
    bool isPlaying(int channel) const override;
    void setPanning(int channel, int left, int right) override;
    std::string lastError() const override;
    Mix_Music* loadMusic(const char* bytes, std::size_t size) override;
    void freeMusic(Mix_Music* music) override;
    bool fadeInMusic(Mix_Music* music, int loops, int ms) override;
    void fadeOutMusic(int ms) override;
    void haltMusic() override;
    bool isMusicPlaying() const override;
    void pauseMusic() override;
    void resumeMusic() override;
    void setMusicVolume(int volume) override;

private:
    bool opened = false;
    // True when this object started SDL's audio subsystem and must stop it.
    bool startedSubsystem = false;
};
