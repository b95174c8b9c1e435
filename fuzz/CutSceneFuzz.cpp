// libFuzzer target: arbitrary bytes as a cut-scene file. The scene is read,
// then every page is turned and drawn at two window sizes, so hostile
// coordinates and texts reach the layout and the drawing.
#include <cstddef>
#include <cstdint>

#include "menus/CutSceneFrame.h"
#include "render/NullRenderer.h"
#include "resources/ResourceManager.h"
#include "FuzzScratch.h"

static char scratch[] = "/tmp/bqcutscenefuzzXXXXXX";

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
    fuzzscratch::writeInput("scene.xml", data, size);
    static NullRenderer renderer;
    CutSceneFrame frame;
    for (const float width : {640.0f, 1920.0f}) {
        frame.update(width, width * 0.5625f);
        frame.play("scene.xml");
        for (size_t i = 0; i <= frame.getScene().pages.size() && frame.isEnabled(); ++i) {
            frame.draw(renderer);
            frame.nextPage();
        }
    }
    return 0;
}
