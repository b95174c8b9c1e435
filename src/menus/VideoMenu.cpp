#include "menus/VideoMenu.h"

#include <algorithm>
#include <cstdio>

#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "gui/Label.h"
#include "gui/ValueBox.h"
#include "menus/ScreenListener.h"
#include "render/IRenderer.h"
#include "world/geometry/Dimension.h"

namespace {
constexpr float frameWidth = 330.0f;
constexpr float captionWidth = 110.0f;
constexpr float boxX = 140.0f;
constexpr float boxWidth = 170.0f;

std::string modeText(int w, int h) { return std::to_string(w) + " x " + std::to_string(h); }

bool varOn(const char* name, bool fallback)
{
    const GameVar* v = findVar(name);
    return v ? v->intValue > 0 : fallback;
}

class VideoListener : public ScreenListener<VideoMenu> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "apply")
            screen.apply();
    }
};
}

VideoMenu::VideoMenu() : MenuFrame("Video Options", screenName, frameWidth, 240.0f)
{
    resolution = addRow("Resolution", 44.0f, "resolution");
    fullscreen = addRow("FullScreen", 80.0f, "fullscreen");
    fullscreen->setValues({"Yes", "No"});
    vsync = addRow("VSync", 116.0f, "vsync");
    vsync->setValues({"On", "Off"});
    bloom = addRow("Bloom", 152.0f, "drawbloom");
    bloom->setValues({"On", "Off"});
    addButton("Apply", "apply", (frameWidth - 120.0f) / 2.0f, 196.0f, 120.0f, 30.0f, true);
    addActionListener(std::make_unique<VideoListener>(*this));
    onShow();
}

ValueBox* VideoMenu::addRow(const std::string& caption, float relY, const std::string& boxName)
{
    addLabel(caption, 14.0f, relY, captionWidth, 26.0f);
    auto box = std::make_unique<ValueBox>();
    box->setBounds(boxX, relY, boxWidth, 26.0f);
    box->setName(boxName);
    return addRelative(std::move(box));
}

void VideoMenu::onShow()
{
    Game* game = Game::current();
    const IRenderer* renderer = game ? game->getRenderer() : nullptr;
    const int w = renderer ? renderer->getWidth() : 640;
    const int h = renderer ? renderer->getHeight() : 480;
    std::vector<std::string> modes = resolutions(w, h);
    if (renderer && renderer->getVideoModes().size() > 0) {
        modes.clear();
        for (const auto& mode : renderer->getVideoModes())
            if (mode)
                modes.push_back(modeText(static_cast<int>(mode->width), static_cast<int>(mode->height)));
        if (std::find(modes.begin(), modes.end(), modeText(w, h)) == modes.end())
            modes.push_back(modeText(w, h));
    }
    resolution->setValues(modes);
    resolution->setValue(modeText(w, h));
    fullscreen->setValue(renderer && renderer->isFullscreen() ? "Yes" : "No");
    vsync->setValue(varOn("vsync", true) ? "On" : "Off");
    bloom->setValue(varOn("drawbloom", true) ? "On" : "Off");
}

std::vector<std::string> VideoMenu::resolutions(int currentW, int currentH)
{
    static const int common[][2] = {{640, 480},   {800, 600},   {1024, 768},  {1280, 720},
                                    {1280, 1024}, {1366, 768},  {1600, 900},  {1920, 1080},
                                    {2560, 1440}, {3840, 2160}};
    std::vector<std::pair<int, int>> sizes;
    for (const auto& s : common)
        sizes.emplace_back(s[0], s[1]);
    if (std::find(sizes.begin(), sizes.end(), std::make_pair(currentW, currentH)) == sizes.end())
        sizes.emplace_back(currentW, currentH);
    std::sort(sizes.begin(), sizes.end(), [](const auto& a, const auto& b) {
        return a.first * a.second < b.first * b.second ||
               (a.first * a.second == b.first * b.second && a.first < b.first);
    });
    std::vector<std::string> out;
    for (const auto& [w, h] : sizes)
        out.push_back(modeText(w, h));
    return out;
}

bool VideoMenu::parseResolution(const std::string& text, int& w, int& h)
{
    char rest = 0;
    if (std::sscanf(text.c_str(), "%d x %d%c", &w, &h, &rest) != 2)
        return false;
    return w > 0 && h > 0 && w <= 16384 && h <= 16384;
}

bool VideoMenu::apply()
{
    int w = 0;
    int h = 0;
    if (!parseResolution(resolution->getValue(), w, h))
        return false;
    const Dimension mode(static_cast<float>(w), static_cast<float>(h));
    std::printf("New Vid Mode: %d x %d\n", static_cast<int>(mode.width), static_cast<int>(mode.height));
    setVar("vsync", vsync->getValue() == "On" ? "1" : "0");
    setVar("drawbloom", bloom->getValue() == "On" ? "1" : "0");
    if (Game* game = Game::current())
        game->restartVideo(w, h, fullscreen->getValue() == "Yes");
    return true;
}
