#pragma once
// A line of text centred in its box, optionally with a drop shadow.
#include <string>

#include "gui/GUIComponent.h"

class Label : public GUIComponent {
public:
    Label();

    void draw(IRenderer& renderer) override;

    void setText(const std::string& t) { text = t; }
    const std::string& getText() const { return text; }
    void setFont(const std::string& name, int size)
    {
        fontName = name;
        fontSize = size;
    }
    void setShadow(bool on) { shadow = on; }

private:
    std::string text;
    std::string fontName = "vera";
    int fontSize = 12;
    bool shadow = false;
};
