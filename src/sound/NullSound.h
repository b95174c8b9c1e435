#pragma once
// Silence: stands in for the sound system in tests and headless runs.
#include "sound/ISound.h"

class NullSound : public ISound {
public:
    bool openAudio() override { return false; }
    bool initialise() override { return false; }
    void closeAudio() override {}
    void playTestSound() override {}
    int playAt(const Vector&, int, int) override { return -1; }
    int playAt(const Vector&, const std::string&, int, int) override { return -1; }
    int playOnChannelAt(int, const Vector&, int, int) override { return -1; }
    int playOnChannelAt(int, const Vector&, const std::string&, int, int) override { return -1; }
    int play(int, int) override { return -1; }
    int play(const std::string&, int, int) override { return -1; }
    int playIdAt(int, const Vector&, int) override { return -1; }
    int playIdOnChannelAt(int, int, const Vector&, int) override { return -1; }
    int playId(int, int) override { return -1; }
    void setVolume(int) override {}
    void applyVolume() override {}
    int getVolume() const override { return 0; }
    bool restart(int, int, int) override { return false; }
    void configure(int, int, int, int, int) override {}
    void getSettings(int& volume, int& unused, int& frequency, int& channels, int& bufferSize) const override
    {
        volume = unused = frequency = channels = bufferSize = 0;
    }
    int findSound(const std::string&) const override { return -1; }
    int loadSound(const std::string&) override { return -1; }
    void registerSound(int, const std::string&) override {}
    void registerSound(int, int, int, bool, const std::string&) override {}
    bool loadDefinitions(const std::string&) override { return false; }
    void update(const Vector&) override {}
    void stopChannel(int) override {}
    bool playMusic(const std::string&) override { return false; }
    void stopMusic() override {}
    void pauseMusic(bool) override {}
};
