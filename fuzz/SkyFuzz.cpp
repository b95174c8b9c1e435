// libFuzzer target: arbitrary bytes as a sky file. The sky is loaded through
// the manager, switched to (fade and particles) and drawn for many frames,
// so hostile numbers meet the colour drift and the glow passes too.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>

#include "particles/ParticleManager.h"
#include "render/NullRenderer.h"
#include "render/SkyManager.h"
#include "resources/ResourceManager.h"
#include "FuzzScratch.h"

static char scratch[] = "/tmp/bqskyfuzzXXXXXX";

static bool setUp()
{
    fuzzscratch::enter(scratch);
    ResourceManager::instance().clearArchives();
    std::ofstream defs("particles.xml");
    defs << "<particles><particle id=\"skydust\" initialParticles=\"4\" maxParticles=\"8\"/></particles>";
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static const bool ready = setUp();
    (void)ready;
    std::srand(1);
    fuzzscratch::writeInput("sky.xml", data, size);
    static NullRenderer renderer;
    ParticleManager particles;
    particles.setRenderer(&renderer);
    particles.init();
    particles.loadDefinitions("particles.xml");
    SkyManager skies;
    skies.setParticleManager(&particles);
    if (skies.loadSky("sky.xml"))
        skies.switchSky("sky.xml");
    for (int i = 0; i < 40; ++i) {
        particles.update(1.0f / 30.0f);
        skies.draw(renderer, Vector(10.0f * static_cast<float>(i), 0.0f, -256.0f), 1.0f / 30.0f);
    }
    skies.clear();
    return 0;
}
