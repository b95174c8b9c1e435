#include "render/FontRenderer.h"

#include <GL/gl.h>

#include <cmath>
#include <cstdio>

#include "render/IRenderer.h"

const char* const FontRenderer::fallbackBitmap = "data/fonts/font.tga";

namespace {
// The fallback bitmap is a 16 x 16 grid of 16-pixel cells; the baseline sits
// 4 pixels above a cell's bottom edge.
constexpr float cellPixels = 16.0f;
constexpr float cellFraction = 1.0f / 16.0f;
constexpr float cellDescent = 4.0f;
}

bool FontRenderer::init()
{
    if (!renderer)
        return false;
    renderer->bindTexture(fallbackName);
    fallbackId = renderer->getTextureId(fallbackName);
    return true;
}

void FontRenderer::setRenderer(IRenderer* r)
{
    if (!r)
        std::printf("NULL RENDERER SET\n");
    renderer = r;
}

bool FontRenderer::selectFont(const std::string&, int) { return false; }

void FontRenderer::drawText(float x, float y, const std::string& text) { drawText(x, y, 0.0f, text); }

void FontRenderer::drawText(float x, float y, float z, const std::string& text)
{
    if (!renderer)
        return;
    renderer->setBlending(true);
    renderer->setAlphaBlend();
    renderer->setTexturing(true);
    glHint(GL_POLYGON_SMOOTH_HINT, GL_NICEST);
    if (fallbackId >= 0)
        renderer->bindTextureId(fallbackId);
    else
        renderer->bindTexture(fallbackName);
    float pen = snapToPixels ? std::round(x) : x;
    const float baseline = snapToPixels ? std::round(y) : y;
    const float size = cellPixels * scale;
    for (unsigned char c : text) {
        const float column = static_cast<float>(c % 16);
        const float row = static_cast<float>(c / 16 - 1);
        const float s = column * cellFraction;
        const float t = 1.0f - row * cellFraction;
        const float bottom = baseline - cellDescent * scale;
        emitGlyph(pen, bottom, pen + size, bottom + size, z, s, t, s + cellFraction,
                  t - cellFraction);
        pen += size;
    }
    renderer->setBlending(false);
}

void FontRenderer::drawTextShadowed(float x, float y, const std::string& text)
{
    drawTextShadowed(x, y, 0.0f, text);
}

void FontRenderer::drawTextShadowed(float x, float y, float z, const std::string& text)
{
    if (!renderer)
        return;
    renderer->setColour(0.0f, 0.0f, 0.0f);
    drawText(x + 1.0f, y - 1.0f, z, text);
    renderer->setColour(255.0f, 255.0f, 255.0f);
    drawText(x, y, z, text);
}

float FontRenderer::textWidth(const std::string& text)
{
    return cellPixels * static_cast<float>(text.size());
}

float FontRenderer::textHeight(const std::string&) { return cellPixels; }

float FontRenderer::centredX(float x, float width, const std::string& text)
{
    return x + width / 2.0f - (cellPixels * static_cast<float>(text.size())) / 2.0f;
}

float FontRenderer::centredY(float y, float height, const std::string&)
{
    return y - height / 2.0f + cellPixels / 2.0f;
}

void FontRenderer::emitGlyph(float left, float bottom, float right, float top, float z, float s,
                             float t, float s2, float t2)
{
    glBegin(GL_QUADS);
    glTexCoord2f(s, t);
    glVertex3f(left, top, z);
    glTexCoord2f(s2, t);
    glVertex3f(right, top, z);
    glTexCoord2f(s2, t2);
    glVertex3f(right, bottom, z);
    glTexCoord2f(s, t2);
    glVertex3f(left, bottom, z);
    glEnd();
}
