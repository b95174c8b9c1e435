#include "render/LevelShot.h"

#include <GL/gl.h>
#include <IL/il.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sys/stat.h>

#include "console/ConsolePrint.h"
#include "render/Renderer.h"
#include "world/body/Body.h"

namespace LevelShot {

std::string outputPath(const std::string& name)
{
    if (name.empty() || name.size() > 200 || name[0] == '.')
        return "";
    for (const char c : name) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                           c == '_' || c == '-' || c == '.';
        if (!plain)
            return "";
    }
    std::string file = name;
    const std::string suffix = ".png";
    if (file.size() < suffix.size() || file.compare(file.size() - suffix.size(), suffix.size(), suffix) != 0)
        file += suffix;
    return "screenshots/" + file;
}

bool extent(const std::vector<Body*>& bodies, float& minX, float& minY, float& maxX, float& maxY)
{
    bool any = false;
    for (const Body* body : bodies) {
        if (!body || !body->visible)
            continue;
        for (const Vector& v : body->worldVertices) {
            if (!std::isfinite(v.x) || !std::isfinite(v.y))
                continue;
            if (!any) {
                minX = maxX = v.x;
                minY = maxY = v.y;
                any = true;
            }
            minX = std::min(minX, v.x);
            maxX = std::max(maxX, v.x);
            minY = std::min(minY, v.y);
            maxY = std::max(maxY, v.y);
        }
    }
    return any;
}

Plan plan(float minX, float minY, float maxX, float maxY, int side)
{
    Plan p;
    const float w = std::max(maxX - minX, 1.0f) + 2.0f * margin;
    const float h = std::max(maxY - minY, 1.0f) + 2.0f * margin;
    p.unitsPerPixel = std::max(w, h) / static_cast<float>(side);
    p.width = std::clamp(static_cast<int>(std::lround(w / p.unitsPerPixel)), 1, side);
    p.height = std::clamp(static_cast<int>(std::lround(h / p.unitsPerPixel)), 1, side);
    p.left = minX - margin;
    p.bottom = minY - margin;
    return p;
}

} // namespace LevelShot

bool Renderer::drawLevelShot(const std::vector<Body*>& bodies, const std::string& path)
{
    float minX = 0, minY = 0, maxX = 0, maxY = 0;
    if (!LevelShot::extent(bodies, minX, minY, maxX, maxY) || width < 1 || height < 1)
        return false;
    const LevelShot::Plan plan = LevelShot::plan(minX, minY, maxX, maxY);
    std::vector<unsigned char> pixels(static_cast<size_t>(plan.width) * static_cast<size_t>(plan.height) * 4);
    std::vector<unsigned char> tile(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);

    // The picture is bigger than the window: draw it a window-sized tile at a
    // time with a flat projection in world units and copy each tile out.
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    for (int ty = 0; ty < plan.height; ty += height) {
        for (int tx = 0; tx < plan.width; tx += width) {
            const int tw = std::min(width, plan.width - tx);
            const int th = std::min(height, plan.height - ty);
            const float x0 = plan.left + static_cast<float>(tx) * plan.unitsPerPixel;
            const float y0 = plan.bottom + static_cast<float>(ty) * plan.unitsPerPixel;
            glViewport(0, 0, tw, th);
            glMatrixMode(GL_PROJECTION);
            glLoadIdentity();
            glOrtho(x0, x0 + static_cast<float>(tw) * plan.unitsPerPixel, y0,
                    y0 + static_cast<float>(th) * plan.unitsPerPixel, -4096.0, 4096.0);
            glMatrixMode(GL_MODELVIEW);
            glLoadIdentity();
            glClearColor(0.12f, 0.13f, 0.16f, 1.0f);
            glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
            glEnable(GL_DEPTH_TEST);
            setBlending(true);
            setAlphaBlend();
            for (Body* body : bodies)
                if (body)
                    drawBody(*body);
            glReadPixels(0, 0, tw, th, GL_RGBA, GL_UNSIGNED_BYTE, tile.data());
            for (int row = 0; row < th; ++row)
                std::copy_n(tile.data() + static_cast<size_t>(row) * static_cast<size_t>(tw) * 4,
                            static_cast<size_t>(tw) * 4,
                            pixels.data() + (static_cast<size_t>(ty + row) * static_cast<size_t>(plan.width) +
                                             static_cast<size_t>(tx)) * 4);
        }
    }
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glViewport(0, 0, width, height);

    // Read-back alpha is whatever the bodies left; the picture is opaque.
    for (size_t i = 3; i < pixels.size(); i += 4)
        pixels[i] = 255;
    ::mkdir("screenshots", 0755);
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    bool saved = ilTexImage(static_cast<ILuint>(plan.width), static_cast<ILuint>(plan.height), 1, 4, IL_RGBA,
                            IL_UNSIGNED_BYTE, pixels.data()) == IL_TRUE;
    if (saved) {
        // GL rows run bottom-up.
        ilRegisterOrigin(IL_ORIGIN_LOWER_LEFT);
        saved = ilSave(IL_PNG, path.c_str()) == IL_TRUE;
    }
    ilDeleteImages(1, &image);
    return saved;
}
