// libFuzzer target: arbitrary bytes as a particle definitions file. Every
// definition read is started as a flow, a burst and a beam of each kind,
// stepped and drawn, so hostile numbers meet the simulation too.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "particles/ParticleManager.h"
#include "particles/ParticleSystem.h"
#include "render/NullRenderer.h"
#include "resources/ResourceManager.h"
#include "FuzzScratch.h"

static char scratch[] = "/tmp/bqparticlefuzzXXXXXX";

static bool setUp()
{
    fuzzscratch::enter(scratch);
    ResourceManager::instance().clearArchives();
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static const bool ready = setUp();
    (void)ready;
    std::srand(1);
    fuzzscratch::writeInput("defs.xml", data, size);
    static NullRenderer renderer;
    ParticleManager manager;
    manager.setRenderer(&renderer);
    manager.init();
    manager.loadDefinitions("defs.xml");
    // Every definition by its id, then each special kind once: a kind name
    // means the same system whichever definition was read last.
    std::vector<std::string> names;
    for (const auto& entry : manager.getDefinitions())
        names.push_back(entry.first);
    for (const char* kind : {"rail", "tracer", "lightning", "plasma", "text"})
        names.emplace_back(kind);
    for (const std::string& name : names)
        if (ParticleSystem* s = manager.createSystem(name)) {
            s->setEndpoints(Vector(0, 0, 0), Vector(300, -40, 0));
            s->emitInitial();
            s->emitAlongSegment();
        }
    // A few steps reach every update and draw path; pools of up to 10,000
    // particles make each further step cost more than a new input.
    for (int i = 0; i < 8; ++i) {
        manager.update(1.0f / 120.0f);
        manager.draw();
    }
    return 0;
}
