#include "world/logic/TextBody.h"

#include <algorithm>

#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "world/level/LevelValues.h"

TextBody::TextBody()
{
    type = "textbody";
    showdamage = false;
    setTraceThrough(true);
}

std::unique_ptr<Body> TextBody::clone() const { return std::make_unique<TextBody>(); }

void TextBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    GameBody::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "shadow"))
            shadow = readBool(value);
        else if (sameName(name, "text"))
            text = value;
        else if (sameName(name, "font"))
            font = value;
        else if (sameName(name, "size"))
            size = readInt(value);
    }
}

void TextBody::afterTargets()
{
    GameBody::afterTargets();
    if (worldVertices.empty())
        return;
    float minX = worldVertices[0].x, minY = worldVertices[0].y, maxY = worldVertices[0].y;
    for (const Vector& v : worldVertices) {
        minX = std::min(minX, v.x);
        minY = std::min(minY, v.y);
        maxY = std::max(maxY, v.y);
    }
    textPosition = Vector(minX, (minY + maxY) / 2.0f, pos.z);
    textMode = true;
}

bool TextBody::isText() const { return textMode; }

void TextBody::drawText(IRenderer& renderer)
{
    FontRenderer* fonts = renderer.getFontRenderer();
    if (!fonts)
        return;
    renderer.setColour(1.0f, 1.0f, 1.0f, 1.0f);
    fonts->selectFont(font, size);
    if (shadow)
        fonts->drawTextShadowed(textPosition.x, textPosition.y, pos.z, text);
    else
        fonts->drawText(textPosition.x, textPosition.y, pos.z, text);
}
