// libFuzzer target: arbitrary bytes as a particle definitions file. Every
// definition read is started as a flow, a burst and a beam of each kind,
// stepped and drawn, so hostile numbers meet the simulation too.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

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
    for (const auto& entry : manager.getDefinitions()) {
        for (const char* kind : {"", "rail", "tracer", "lightning", "plasma", "text"}) {
            // An unknown kind name falls back to the definition just read
            // only when its id is that kind; starting by id covers the rest.
            ParticleSystem* s = manager.createSystem(*kind ? std::string(kind) : entry.first);
            if (!s)
                continue;
            s->setEndpoints(Vector(0, 0, 0), Vector(300, -40, 0));
            s->emitInitial();
            s->emitAlongSegment();
        }
    }
    for (int i = 0; i < 30; ++i) {
        manager.update(1.0f / 120.0f);
        manager.draw();
    }
    return 0;
}
