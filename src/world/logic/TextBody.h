#pragma once
// Words written into the level (signs, instructions): drawn with a font
// instead of a polygon, left-aligned to the body's box and centred on it
// vertically.
#include "world/gamebody/GameBody.h"

class TextBody : public GameBody {
public:
    TextBody();
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void afterTargets() override;
    bool isText() const override;
    void drawText(IRenderer& renderer) override;

    std::string text;
    std::string font = "vera";
    int size = 12;
    bool shadow = false;
    bool textMode = false;
    Vector textPosition;
};
