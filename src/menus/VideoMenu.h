#pragma once
// Screen size, full screen, vsync and bloom. "Apply" changes the video mode
// through the Game, which keeps fonts and textures and re-lays out the GUI.
#include <string>
#include <vector>

#include "menus/MenuFrame.h"

class ValueBox;

class VideoMenu : public MenuFrame {
public:
    static constexpr const char* screenName = "video";

    VideoMenu();

    // Shows the current mode, full-screen state, vsync and bloom.
    void onShow() override;
    // Reads the boxes and asks the Game for the mode; false when the
    // resolution text is not "width x height".
    bool apply();

    // The renderer's full-screen modes as "w x h", smallest first, or a
    // list of common sizes when any size will do; always holds the current one.
    static std::vector<std::string> resolutions(int currentW, int currentH);
    // "1024 x 768" to 1024 and 768; false for anything else.
    static bool parseResolution(const std::string& text, int& w, int& h);

    ValueBox& getResolution() { return *resolution; }
    ValueBox& getFullscreen() { return *fullscreen; }
    ValueBox& getVsync() { return *vsync; }
    ValueBox& getBloom() { return *bloom; }

private:
    ValueBox* addRow(const std::string& caption, float relY, const std::string& boxName);

    ValueBox* resolution = nullptr;
    ValueBox* fullscreen = nullptr;
    ValueBox* vsync = nullptr;
    ValueBox* bloom = nullptr;
};
