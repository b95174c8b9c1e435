// The Renderer's kept backdrop: a still picture behind the menus redrawn a band at a time.
#include "render/Renderer.h"

#include <GL/gl.h>

#include <algorithm>
#include <tuple>

std::pair<int, int> Renderer::backdropBandRows(int frame, int h)
{
    const int band = (std::max(h, 0) + backdropBands - 1) / backdropBands;
    const int first = std::min((frame % backdropBands) * band, std::max(h, 0));
    return {first, std::min(first + band, std::max(h, 0))};
}

void Renderer::beginBackdrop(const void* owner)
{
    GLint maxSize = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maxSize);
    // A window larger than any texture cannot be kept: it is drawn in full.
    if (!frameReuse || width > maxSize || height > maxSize) {
        backdropValid = false;
        return;
    }
    std::vector<float> view(32);
    glGetFloatv(GL_MODELVIEW_MATRIX, view.data());
    glGetFloatv(GL_PROJECTION_MATRIX, view.data() + 16);
    const bool kept = backdropValid && owner == backdropOwner && view == backdropView &&
                      backdropTexWidth >= width && backdropTexHeight >= height;
    if (kept) {
        std::tie(backdropFirstRow, backdropEndRow) = backdropBandRows(backdropFrame++, height);
    } else {
        if (backdropTexWidth < width || backdropTexHeight < height) {
            deleteBackdrop();
            backdropTexWidth = backdropTexHeight = 1;
            while (backdropTexWidth < width)
                backdropTexWidth *= 2;
            while (backdropTexHeight < height)
                backdropTexHeight *= 2;
            backdropTexWidth = std::min(backdropTexWidth, static_cast<int>(maxSize));
            backdropTexHeight = std::min(backdropTexHeight, static_cast<int>(maxSize));
            glGenTextures(1, &backdropTexture);
            glBindTexture(GL_TEXTURE_2D, backdropTexture);
            glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, backdropTexWidth, backdropTexHeight, 0, GL_RGBA,
                         GL_UNSIGNED_BYTE, nullptr);
            // Copied back pixel for pixel: no filtering, no wrapping.
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
            glBindTexture(GL_TEXTURE_2D, 0);
            currentTextureId = -1;
        }
        backdropOwner = owner;
        backdropView = std::move(view);
        backdropFrame = 0;
        backdropFirstRow = 0;
        backdropEndRow = height;
    }
    backdropOpen = true;
    backdropScissorWasOn = glIsEnabled(GL_SCISSOR_TEST) == GL_TRUE;
    glGetIntegerv(GL_SCISSOR_BOX, backdropScissorBox);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, backdropFirstRow, width, backdropEndRow - backdropFirstRow);
}

void Renderer::endBackdrop()
{
    if (!backdropOpen)
        return;
    backdropOpen = false;
    glScissor(backdropScissorBox[0], backdropScissorBox[1], backdropScissorBox[2], backdropScissorBox[3]);
    if (!backdropScissorWasOn)
        glDisable(GL_SCISSOR_TEST);
    glBindTexture(GL_TEXTURE_2D, backdropTexture);
    if (backdropEndRow > backdropFirstRow)
        glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, backdropFirstRow, 0, backdropFirstRow, width,
                            backdropEndRow - backdropFirstRow);
    backdropValid = true;
    if (backdropFirstRow > 0 || backdropEndRow < height)
        drawKeptBackdrop();
    glBindTexture(GL_TEXTURE_2D, 0);
    currentTextureId = -1;
}

void Renderer::drawKeptBackdrop()
{
    const GLboolean blendWasOn = glIsEnabled(GL_BLEND);
    const GLboolean texturingWasOn = glIsEnabled(GL_TEXTURE_2D);
    begin2D();
    glDisable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
    const float w = static_cast<float>(width);
    const float u = w / static_cast<float>(backdropTexWidth);
    const float texHeight = static_cast<float>(backdropTexHeight);
    auto rows = [&](int first, int end) {
        if (end <= first)
            return;
        const float y0 = static_cast<float>(first);
        const float y1 = static_cast<float>(end);
        glTexCoord2f(0.0f, y0 / texHeight);
        glVertex2f(0.0f, y0);
        glTexCoord2f(u, y0 / texHeight);
        glVertex2f(w, y0);
        glTexCoord2f(u, y1 / texHeight);
        glVertex2f(w, y1);
        glTexCoord2f(0.0f, y1 / texHeight);
        glVertex2f(0.0f, y1);
    };
    glBegin(GL_QUADS);
    rows(0, backdropFirstRow);
    rows(backdropEndRow, height);
    glEnd();
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    end2D();
    setBlending(blendWasOn == GL_TRUE);
    setTexturing(texturingWasOn == GL_TRUE);
}

void Renderer::deleteBackdrop()
{
    if (backdropTexture != 0)
        glDeleteTextures(1, &backdropTexture);
    backdropTexture = 0;
    backdropTexWidth = backdropTexHeight = 0;
    backdropValid = false;
}
