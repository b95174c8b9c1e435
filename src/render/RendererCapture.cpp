// The Renderer's captures: screenshots, movie frames and grabs of the screen to a file.
#include "render/Renderer.h"

#include <IL/il.h>
#include <IL/ilu.h>
#include <IL/ilut.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sys/stat.h>

#include "console/ConsolePrint.h"
#include "resources/AtomicFile.h"

namespace {
constexpr float movieFrameMs = 125.0f;
constexpr int lastCaptureNumber = 9999;
}

bool Renderer::isMovieFrameDue(float now)
{
    if (now < nextMovieFrame)
        return false;
    nextMovieFrame = now + movieFrameMs;
    return true;
}

std::string Renderer::captureName(bool movie, int number)
{
    char digits[8];
    std::snprintf(digits, sizeof digits, "%04d", std::clamp(number, 0, lastCaptureNumber));
    return std::string(movie ? "screenshots/movie" : "screenshots/screenshot") + digits + ".png";
}

int Renderer::nextFreeScreenshot(int start)
{
    int n = std::max(start, 0);
    for (; n < lastCaptureNumber; ++n) {
        std::ifstream probe(captureName(false, n), std::ios::binary);
        if (!probe)
            return n;
    }
    return lastCaptureNumber;
}

void Renderer::takeScreenshot()
{
    const bool movie = varInt(movieRecord) > 0;
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    if (ilutGLScreen() != IL_TRUE) {
        std::printf("Error taking screenshot\n");
        ilDeleteImages(1, &image);
        return;
    }
    int number = 0;
    if (movie) {
        number = movieNumber++;
    } else {
        screenshotNumber = nextFreeScreenshot(screenshotNumber);
        number = screenshotNumber;
    }
    if (number >= lastCaptureNumber) {
        if (!movie)
            conPrint("Screenshots dir is full, copy the pictures elsewhere and try again");
    } else {
        const std::string name = captureName(movie, number);
        ::mkdir("screenshots", 0755);
        // Movie frames come eight a second: they are written silently.
        if (!movie) {
            conPrint("Writing screenshot to " + name);
            std::printf("Writing screenshot to %s\n", name.c_str());
        }
        ilSave(IL_PNG, name.c_str());
    }
    ilDeleteImages(1, &image);
}

void Renderer::grabScreen()
{
    if (grabbedImage >= 0) {
        ILuint old = static_cast<ILuint>(grabbedImage);
        ilDeleteImages(1, &old);
        grabbedImage = -1;
    }
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);
    if (ilutGLScreen() != IL_TRUE) {
        ilDeleteImages(1, &image);
        return;
    }
    grabbedImage = static_cast<int>(image);
}

bool Renderer::saveGrab(const std::string& path, int w, int h)
{
    textures.unload(path);
    if (grabbedImage < 0)
        return false;
    ILuint image = static_cast<ILuint>(grabbedImage);
    ilBindImage(image);
    iluImageParameter(ILU_FILTER, ILU_BILINEAR);
    iluScale(static_cast<ILuint>(std::max(w, 1)), static_cast<ILuint>(std::max(h, 1)), 1);
    iluContrast(1.1f);
    // A thumbnail is replaced whole or not at all.
    AtomicFile::replace(path, [](const std::string& temporary) {
        return ilSave(IL_PNG, temporary.c_str()) == IL_TRUE;
    });
    ilDeleteImages(1, &image);
    grabbedImage = -1;
    return true;
}
