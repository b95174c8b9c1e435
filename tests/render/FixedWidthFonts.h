#pragma once
// "vera" at the game's four sizes with every printable character 8 pixels
// wide, remembering where each glyph lands: enough to check that text stays
// inside its box without GL or the font files.
#include <tinyxml.h>

#include <memory>
#include <string>
#include <vector>

#include "render/ImageFontRenderer.h"

class FixedWidthFonts : public ImageFontRenderer {
public:
    struct Glyph {
        float left, bottom, right, top;
    };

    FixedWidthFonts()
    {
        for (int size : {12, 14, 18, 24}) {
            std::string xml = "<font name=\"vera\" size=\"" + std::to_string(size) + "\"><descriptors>";
            for (int c = 32; c < 127; ++c)
                xml += "<c charcode=\"" + std::to_string(c) +
                       "\" image=\"p.png\" width=\"8\" height=\"10\" top=\"8\" xadvance=\"8\"/>";
            xml += "</descriptors><imageindex><image filename=\"p.png\"/></imageindex></font>";
            TiXmlDocument doc;
            doc.Parse(xml.c_str());
            auto font = std::make_unique<Font>();
            font->loadDocument(doc);
            addFont(std::move(font));
        }
        selectFont("vera", 14);
    }

    std::vector<Glyph> glyphs;

protected:
    void emitGlyph(float left, float bottom, float right, float top, float, float, float, float, float) override
    {
        glyphs.push_back({left, bottom, right, top});
    }
};
