#include "gui/TextView.h"

#include <algorithm>

#include "gui/TextLayout.h"
#include "render/IRenderer.h"

TextView::TextView()
{
    focusable = true;
    setBounds(64.0f, 364.0f, 200.0f, 100.0f);
}

float TextView::textWidth() const { return width - 2.0f * TextLayout::padding; }

void TextView::rewrap()
{
    lines = text.empty() ? std::vector<std::string>() : TextLayout::wrap(text, textWidth());
    scrollTo(firstLine);
}

void TextView::setBounds(float newX, float newY, float w, float h)
{
    GUIComponent::setBounds(newX, newY, w, h);
    rewrap();
}

void TextView::setText(const std::string& t)
{
    text = t;
    firstLine = 0;
    rewrap();
}

void TextView::addLine(const std::string& line)
{
    text = text.empty() ? line : text + "\n" + line;
    rewrap();
}

int TextView::getMaxFirstLine() const
{
    return std::max(0, static_cast<int>(lines.size()) - TextLayout::linesFitting(height));
}

void TextView::scrollTo(int first) { firstLine = std::clamp(first, 0, getMaxFirstLine()); }

void TextView::mouseDown(float px, float py, int button)
{
    if (button == 4 || button == 5) {
        scrollBy(button == 5 ? 1 : -1);
        return;
    }
    GUIComponent::mouseDown(px, py, button);
}

void TextView::keyDown(int symbol, int character, const std::string& keyName)
{
    const int page = std::max(1, TextLayout::linesFitting(height) - 1);
    if (keyName == "down")
        scrollBy(1);
    else if (keyName == "up")
        scrollBy(-1);
    else if (keyName == "pagedown")
        scrollBy(page);
    else if (keyName == "pageup")
        scrollBy(-page);
    else
        GUIComponent::keyDown(symbol, character, keyName);
}

void TextView::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.setBlending(true);
    renderer.bindTexture("data/gui/bg.png");
    renderer.setColour(30.0f, 32.0f, 40.0f, 220.0f);
    renderer.drawQuad(x, y, 0.0f, width, height);
    drawSunkenBevel(renderer, x, y, width, height);
    renderer.setTexturing(true);
    TextLayout::drawLines(renderer, lines, firstLine, x, y, textWidth(), height);
    drawChildren(renderer);
}
