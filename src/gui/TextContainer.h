#pragma once
// A block of wrapped text on no background (cut-scene pages, captions). It
// shows what fits and does not scroll.
#include <string>

#include "gui/GUIComponent.h"

class TextContainer : public GUIComponent {
public:
    TextContainer();

    void draw(IRenderer& renderer) override;

    void setText(const std::string& t) { text = t; }
    const std::string& getText() const { return text; }

private:
    std::string text;
    std::string fontName = "vera";
};
