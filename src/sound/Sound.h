#pragma once
// The game's sound system: short samples played through an IMixer (SDL_mixer
// in the game) on 32 channels. Samples are registered by id from
// data/sounds/sounds.xml or loaded on first use by file name; positional
// channels fade linearly to silence 480 units from the listener and pan
// towards their side of it. Channels 0 to 9 are kept for samples that name
// their channel. Music streams on SDL_mixer's own music channel.
#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "sound/IMixer.h"
#include "sound/ISound.h"
#include "sound/SoundChannelInfo.h"
#include "sound/SoundSample.h"

class GameVar;

class Sound : public ISound {
public:
    static constexpr int channelCount = 32;
    static constexpr int reservedChannels = 10;
    // Beyond this many playing channels (counted at the last update) plain
    // and positional plays are refused, so bursts cannot starve the mixer.
    static constexpr int plainPlayLimit = 10;
    static constexpr int positionalPlayLimit = 5;
    static constexpr float fadeDistance = 480.0f;
    static constexpr int maxVolume = 128;
    static constexpr const char* testSoundPath = "data/sounds/test/test.ogg";
    // A sound this far to one side is heard only in that ear, less
    // panDepth of it in the other.
    static constexpr float panDistance = fadeDistance / 2.0f;
    static constexpr float panDepth = 0.75f;
    // Half the crossfade between two tracks: out, then in.
    static constexpr int musicFadeMs = 500;

    struct Pan {
        int left = 255;
        int right = 255;
        bool operator==(const Pan& o) const { return left == o.left && right == o.right; }
    };
    // How loud each ear hears a sound at `position` from `listener`.
    static Pan panFor(const Vector& position, const Vector& listener);

    // The real device (SdlMixer).
    Sound();
    // Any mixer: tests pass a scripted one.
    explicit Sound(std::unique_ptr<IMixer> mixer);
    ~Sound() override;
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    bool openAudio() override;
    bool initialise() override;
    void closeAudio() override;
    void playTestSound() override;
    int playAt(const Vector& position, int sampleIndex, int loops) override;
    int playAt(const Vector& position, const std::string& name, int loops, int volume) override;
    int playOnChannelAt(int channel, const Vector& position, int sampleIndex, int loops) override;
    int playOnChannelAt(int channel, const Vector& position, const std::string& name, int loops,
                        int volume) override;
    int play(int sampleIndex, int loops) override;
    int play(const std::string& name, int loops, int volume) override;
    int playIdAt(int id, const Vector& position, int loops) override;
    int playIdOnChannelAt(int id, int channel, const Vector& position, int loops) override;
    int playId(int id, int loops) override;
    void setVolume(int volume) override;
    void applyVolume() override;
    int getVolume() const override;
    bool restart(int frequency, int channels, int bufferSize) override;
    void configure(int volume, int unused, int frequency, int channels, int bufferSize) override;
    void getSettings(int& volume, int& unused, int& frequency, int& channels, int& bufferSize) const override;
    int findSound(const std::string& name) const override;
    int loadSound(const std::string& name) override;
    void registerSound(int id, const std::string& name) override;
    void registerSound(int id, int channel, int volume, bool positional, const std::string& name) override;
    bool loadDefinitions(const std::string& path) override;
    void update(const Vector& listener) override;
    void stopChannel(int channel) override;
    bool playMusic(const std::string& path) override;
    void stopMusic() override;
    void pauseMusic(bool paused) override;

    // The sample loaded from that path, or null.
    SoundSample* getSample(const std::string& name) const;
    // Reads and decodes the file and appends the sample; its index, or -1
    // (with a message) when the file cannot be read or decoded. While the
    // device is closed the sample is kept undecoded until it opens.
    int loadSample(int id, int channel, int volume, bool positional, const std::string& path);

    bool isReady() const { return ready; }
    int getPlayingCount() const { return playingCount; }
    int getSampleCount() const { return static_cast<int>(samples.size()); }
    // Index registered under id, or -1.
    int findId(int id) const;
    const SoundChannelInfo& getChannelInfo(int channel) const { return *channels[channel]; }
    // The track asked for ("" for none) and whether it is on the device yet.
    const std::string& getMusicPath() const { return musicPath; }
    bool isMusicStarted() const { return music != nullptr && !musicPending && !musicPath.empty(); }

private:
    static bool validChannel(int channel) { return channel >= 0 && channel < channelCount; }
    bool playable(int sampleIndex) const;
    // The volume a channel plays at for the listener at `listener`.
    int channelVolume(const SoundChannelInfo& info) const;
    // Starts the chunk and records the channel; `position` is null for plain play.
    int start(int channel, int sampleIndex, int loops, const Vector* position);
    // Decodes every sample that has no chunk or was decoded for another format.
    void decodeSamples();
    bool decode(SoundSample& sample);
    void registerCommands();
    // Finds the four sound variables and hooks changes of "volume"; once.
    void bindVariables();
    int intOf(const GameVar* var) const;
    // Gives the channel its panning when it changed since the last time.
    void applyPan(int channel, SoundChannelInfo& info);
    // Starts the queued track once the one before has faded out.
    void startPendingMusic();
    // Halts and frees the stream on the device.
    void releaseMusic();
    void applyMusicVolume();

    // Declared first so that it outlives the samples, which free through it.
    std::unique_ptr<IMixer> mixer;
    int masterVolume = maxVolume;
    int lastVolume = maxVolume;
    bool ready = false;
    int playingCount = 0;
    std::map<int, int> idMap;
    std::map<std::string, int> nameMap;
    std::vector<std::unique_ptr<SoundSample>> samples;
    std::array<std::unique_ptr<SoundChannelInfo>, channelCount> channels;
    GameVar* volumeVar = nullptr;
    GameVar* bufferVar = nullptr;
    GameVar* channelsVar = nullptr;
    GameVar* frequencyVar = nullptr;
    GameVar* musicVolumeVar = nullptr;
    Vector listenerPosition;
    // The device format the samples' chunks were decoded for.
    IMixer::Spec decodedSpec;

    std::string musicPath;
    // The stream on the device reads from musicBytes while it plays.
    Mix_Music* music = nullptr;
    std::unique_ptr<char[]> musicBytes;
    std::size_t musicSize = 0;
    // The next track, read and waiting for the last one to fade out.
    bool musicPending = false;
    std::unique_ptr<char[]> pendingBytes;
    std::size_t pendingSize = 0;
    bool musicPaused = false;
};
