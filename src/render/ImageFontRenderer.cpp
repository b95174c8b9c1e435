#include "render/ImageFontRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "render/IRenderer.h"

namespace {
struct FontFile {
    const char* file;
    int size;
};
constexpr FontFile fontSet[] = {
    {"vera_12.xml", 12}, {"verabd_14.xml", 14}, {"verabd_18.xml", 18}, {"verabd_24.xml", 24}};
constexpr float noFontSize = 16.0f;
}

bool ImageFontRenderer::init()
{
    clearFonts();
    bool allLoaded = true;
    for (const FontFile& f : fontSet)
        allLoaded = loadFont(f.file, f.size) && allLoaded;
    selectFont("vera", 14);

    // Pages are bound only for a complete set: a half-loaded set draws with what is bound.
    if (allLoaded && renderer) {
        pageIds.clear();
        for (const auto& font : fonts)
            for (const std::string& page : font->getImageNames()) {
                renderer->bindTexture("data/fonts/" + page);
                pageIds[page] = renderer->getTextureId("data/fonts/" + page);
            }
        for (const auto& font : fonts)
            for (int code = 0; code < Font::codeCount; ++code)
                if (CharacterDescriptor* d = font->getDescriptor(code)) {
                    auto it = pageIds.find(d->imageName);
                    d->textureId = it == pageIds.end() ? -1 : it->second;
                }
    }
    if (renderer)
        renderer->setAlphaBlend();
    return true;
}

void ImageFontRenderer::clearFonts()
{
    fonts.clear();
    current = nullptr;
}

bool ImageFontRenderer::loadFont(const std::string& fileName, int size)
{
    auto font = std::make_unique<Font>();
    if (!font->load(fileName))
        return false;
    font->size = size;
    fonts.push_back(std::move(font));
    return true;
}

void ImageFontRenderer::addFont(std::unique_ptr<Font> font)
{
    if (font)
        fonts.push_back(std::move(font));
}

bool ImageFontRenderer::selectFont(const std::string& name, int size)
{
    if (current && current->name == name && current->size == size)
        return true;
    for (const auto& font : fonts)
        if (font->name == name && font->size == size) {
            current = font.get();
            return true;
        }
    return false;
}

void ImageFontRenderer::drawText(float x, float y, float z, const std::string& text)
{
    if (!current || !renderer)
        return;
    // Whatever drew last (the glow pass, an untextured body) may have left
    // texturing off; glyphs without their page are solid blocks.
    renderer->setTexturing(true);
    renderer->setBlending(true);
    renderer->setAlphaBlend();
    float pen = snapToPixels ? std::round(x) : x;
    const float baseline = snapToPixels ? std::round(y) : y;
    int boundId = -1;
    bool reportedMissing = false;
    for (unsigned char c : text) {
        const CharacterDescriptor* d = current->getDescriptor(c);
        if (!d) {
            // Once per draw: the console redraws its lines every frame.
            if (!reportedMissing)
                std::printf("NULL CHARACTER DESCRIPTOR\n");
            reportedMissing = true;
            continue;
        }
        const float w = static_cast<float>(d->width) * scale;
        const float h = static_cast<float>(d->height) * scale;
        const float top = static_cast<float>(d->top) * scale;
        const float advance = d->xAdvance * scale;
        const float bottom = baseline - (h - top);
        if (w > 0.0f && h > 0.0f) {
            if (d->textureId >= 0 && d->textureId != boundId) {
                renderer->bindTextureId(d->textureId);
                boundId = d->textureId;
            }
            emitGlyph(pen, bottom, pen + w, bottom + h, z, d->s, d->t, d->s2, d->t2);
        }
        const float step = std::max(advance, w) + spacing;
        pen += snapToPixels ? std::round(step) : step;
    }
}

float ImageFontRenderer::textWidth(const std::string& text)
{
    if (!current)
        return noFontSize;
    float width = 0.0f;
    for (unsigned char c : text)
        if (current->getDescriptor(c))
            width += current->getAdvance(c) + spacing;
    return width;
}

float ImageFontRenderer::textHeight(const std::string&)
{
    return current ? static_cast<float>(current->size) : noFontSize;
}

float ImageFontRenderer::centredX(float x, float width, const std::string& text)
{
    return x + width / 2.0f - textWidth(text) / 2.0f;
}

float ImageFontRenderer::centredY(float y, float height, const std::string& text)
{
    return y - height / 2.0f - textHeight(text) / 2.0f;
}
