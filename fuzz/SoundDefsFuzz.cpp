// libFuzzer target: arbitrary bytes as the sound definitions file, loaded by
// a sound system on SDL's dummy audio driver (so SDL_mixer really decodes),
// then every registered id played at a few positions. The device is opened
// once for the whole run: opening and closing it per input would spend
// nearly all the time waiting on the audio thread.
// Build with clang and -DBQ_FUZZ=ON; new inputs go to the first directory:
//   build-fuzz/fuzz/bq_fuzz_sound_defs /tmp/new-inputs fuzz/corpus/sound_defs
#include <SDL.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "console/VariableRegistry.h"
#include "sound/SdlMixer.h"
#include "sound/Sound.h"
#include "FuzzScratch.h"

namespace {
bool ready = false;

// The real mixer, but opened at most once and never closed; a close halts
// every channel instead, so each input starts with a silent device.
class KeptOpenMixer : public IMixer {
public:
    explicit KeptOpenMixer(SdlMixer& real) : real(real) {}
    bool open(int frequency, int channels, int bufferSize) override
    {
        Spec spec;
        return real.querySpec(spec) || real.open(frequency, channels, bufferSize);
    }
    void close() override { real.haltChannel(-1); }
    bool querySpec(Spec& spec) const override { return real.querySpec(spec); }
    int allocateChannels(int count) override { return real.allocateChannels(count); }
    int reserveChannels(int count) override { return real.reserveChannels(count); }
    int groupChannels(int from, int to, int tag) override { return real.groupChannels(from, to, tag); }
    Mix_Chunk* decode(const char* bytes, std::size_t size) override { return real.decode(bytes, size); }
    void freeChunk(Mix_Chunk* chunk) override { real.freeChunk(chunk); }
    int playChannel(int channel, Mix_Chunk* chunk, int loops) override
    {
        return real.playChannel(channel, chunk, loops);
    }
    void haltChannel(int channel) override { real.haltChannel(channel); }
    void setChannelVolume(int channel, int volume) override { real.setChannelVolume(channel, volume); }
    bool isPlaying(int channel) const override { return real.isPlaying(channel); }
    std::string lastError() const override { return real.lastError(); }
    void setPanning(int channel, int left, int right) override { real.setPanning(channel, left, right); }
    Mix_Music* loadMusic(const char* bytes, std::size_t size) override { return real.loadMusic(bytes, size); }
    void freeMusic(Mix_Music* music) override { real.freeMusic(music); }
    bool fadeInMusic(Mix_Music* music, int loops, int ms) override { return real.fadeInMusic(music, loops, ms); }
    void fadeOutMusic(int ms) override { real.fadeOutMusic(ms); }
    void haltMusic() override { real.haltMusic(); }
    bool isMusicPlaying() const override { return real.isMusicPlaying(); }
    void pauseMusic() override { real.pauseMusic(); }
    void resumeMusic() override { real.resumeMusic(); }
    void setMusicVolume(int volume) override { real.setMusicVolume(volume); }

private:
    SdlMixer& real;
};

void put(const std::string& name, const std::string& bytes)
{
    std::ofstream out(name, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string le(uint32_t value, int bytes)
{
    std::string out;
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xff);
    return out;
}

// A mono 16-bit WAV of `frames` frames; `claimed` is the data size the header states.
std::string wav(uint32_t frames, uint32_t claimed)
{
    std::string data;
    for (uint32_t i = 0; i < frames; ++i)
        data += le(static_cast<uint32_t>((i % 50) * 600), 2);
    return "RIFF" + le(36 + claimed, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) + le(22050, 4) +
           le(44100, 4) + le(2, 2) + le(16, 2) + "data" + le(claimed, 4) + data;
}

void setUp()
{
    ready = true;
    fuzzscratch::enter("/tmp/bqsoundfuzzXXXXXX");
    if (mkdir("data", 0700) != 0 || mkdir("data/sounds", 0700) != 0)
        std::abort();
    // Never a real device; the audio subsystem stays up across inputs.
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    SDL_InitSubSystem(SDL_INIT_AUDIO);
    put("data/sounds/tone.wav", wav(400, 800));
    put("data/sounds/short.wav", wav(10, 100000));
    put("data/sounds/junk.wav", "RIFF\x10\0\0\0WAVEjunkjunk");
    put("data/sounds/empty.ogg", "OggS");
    createVar("volume", "100", "");
    createVar("soundfrequency", "22050", "");
    createVar("soundchannels", "2", "");
    createVar("soundbuffer", "512", "");
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (!ready)
        setUp();
    put("data/sounds/sounds.xml", std::string(reinterpret_cast<const char*>(data), size));
    static SdlMixer device;
    Sound sound(std::make_unique<KeptOpenMixer>(device));
    sound.initialise();
    sound.loadDefinitions("data/sounds/sounds.xml");
    for (int id = -1; id <= 64; ++id) {
        sound.playId(id, 0);
        sound.playIdAt(id, Vector(static_cast<float>(id * 20), 0), 1);
        sound.update(Vector(0, 0));
    }
    sound.closeAudio();
    return 0;
}
