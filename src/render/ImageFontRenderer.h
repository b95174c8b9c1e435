#pragma once
// The game's text renderer: the fixed set of bitmap fonts baked from
// Bitstream Vera (family "vera" at 12, 14, 18 and 24 points), one of which is
// current. Glyphs are textured quads laid out on the baseline, pen positions
// snapped to whole pixels so the 1:1 glyph pages stay crisp.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "render/Font.h"
#include "render/FontRenderer.h"

class ImageFontRenderer : public FontRenderer {
public:
    ~ImageFontRenderer() override = default;

    // Loads the four fonts, selects "vera" 14 and binds their pages through the renderer.
    bool init() override;
    void clearFonts() override;
    bool selectFont(const std::string& name, int size) override;
    void drawText(float x, float y, float z, const std::string& text) override;
    float textWidth(const std::string& text) override;
    float textHeight(const std::string& text) override;
    float centredX(float x, float width, const std::string& text) override;
    float centredY(float y, float height, const std::string& text) override;

    // Loads "data/fonts/" + fileName and adds it at the given size.
    virtual bool loadFont(const std::string& fileName, int size);
    // Adds an already loaded font (tests, tools).
    void addFont(std::unique_ptr<Font> font);

    const Font* getCurrentFont() const { return current; }
    size_t fontCount() const { return fonts.size(); }
    void setSpacing(float s) { spacing = s; }
    float getSpacing() const { return spacing; }

    using FontRenderer::drawText;

private:
    std::vector<std::unique_ptr<Font>> fonts;
    std::map<std::string, int> pageIds;
    Font* current = nullptr;
    float spacing = 1.0f;
};
