// The sound system's per-frame cost with SDL_mixer on SDL's dummy driver: the
// listener update over 32 channels with 20 positional loops running, and a
// positional play (start, volume, bookkeeping) as bodies do on every shot.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "console/VariableRegistry.h"
#include "sound/Sound.h"

namespace {

std::string le(uint32_t value, int bytes)
{
    std::string out;
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xff);
    return out;
}

// One second of a quiet mono 16-bit tone.
std::string toneWav()
{
    std::string data;
    for (uint32_t i = 0; i < 44100; ++i)
        data += le(static_cast<uint32_t>((i % 100) * 40), 2);
    return "RIFF" + le(36 + static_cast<uint32_t>(data.size()), 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) +
           le(44100, 4) + le(88200, 4) + le(2, 2) + le(16, 2) + "data" + le(static_cast<uint32_t>(data.size()), 4) +
           data;
}

struct Device {
    Device()
    {
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        createVar("volume", "100", "");
        createVar("soundfrequency", "44100", "");
        createVar("soundchannels", "2", "");
        createVar("soundbuffer", "1024", "");
        path = "/tmp/bqsoundbench" + std::to_string(getpid()) + ".wav";
        std::ofstream(path, std::ios::binary) << toneWav();
        sound.initialise();
        sound.registerSound(1, -1, 80, true, path);
    }
    ~Device()
    {
        sound.closeAudio();
        std::remove(path.c_str());
    }
    std::string path;
    Sound sound;
};

void BM_UpdateListener(benchmark::State& state)
{
    Device device;
    for (int i = 0; i < 20; ++i)
        device.sound.playIdAt(1, Vector(static_cast<float>(i * 30), 0), -1);
    float x = 0.0f;
    for (auto _ : state) {
        device.sound.update(Vector(x, 0));
        x = x > 600.0f ? 0.0f : x + 1.0f;
    }
    state.counters["playing"] = device.sound.getPlayingCount();
}
BENCHMARK(BM_UpdateListener);

void BM_PositionalPlay(benchmark::State& state)
{
    Device device;
    for (auto _ : state) {
        const int channel = device.sound.playIdAt(1, Vector(100, 0), 0);
        device.sound.stopChannel(channel);
    }
}
BENCHMARK(BM_PositionalPlay);

}  // namespace
