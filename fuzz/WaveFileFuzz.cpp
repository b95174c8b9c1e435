// libFuzzer target: arbitrary bytes as a wave file, read by a wave controller
// against a few bodies, then run as if it had been fired long ago.
// Build with clang and -DBQ_FUZZ=ON; new inputs go to the first directory:
//   build-fuzz/fuzz/bq_fuzz_wave_file /tmp/new-inputs fuzz/corpus/wave_file
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "FuzzScratch.h"
#include "world/logic/WaveController.h"

namespace {
char pattern[] = "/tmp/bqwavefuzzXXXXXX";

class Counter : public GameBody {
public:
    void onTriggered(GameBody*) override { ++fired; }
    int fired = 0;
};
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (fuzzscratch::directory.empty())
        fuzzscratch::enter(pattern);
    fuzzscratch::writeInput("waves.xml", data, size);
    std::vector<std::unique_ptr<Counter>> owned;
    std::list<Body*> bodies;
    for (const char* id : {"a", "b", "spawner", ""}) {
        owned.push_back(std::make_unique<Counter>());
        owned.back()->id = id;
        bodies.push_back(owned.back().get());
    }
    WaveController wave;
    wave.wavefile = "waves.xml";
    wave.active = true;
    wave.starttime = -1.0e9f;
    wave.loadWaveFile(bodies);
    wave.active = false;
    wave.loadWaveFile(bodies);
    wave.onTriggered(nullptr);
    wave.starttime = -1.0e30f;
    wave.think(0.025f);
    return 0;
}
