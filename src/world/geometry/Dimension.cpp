#include "world/geometry/Dimension.h"

#include "world/geometry/TextForm.h"

std::string Dimension::widthString() const { return formatFloat(width); }
std::string Dimension::heightString() const { return formatFloat(height); }
std::string Dimension::depthString() const { return formatFloat(depth); }

std::string Dimension::toString() const
{
    return widthString() + "," + heightString() + "," + depthString();
}

std::string Dimension::toStringWxH() const { return widthString() + " x " + heightString(); }

void Dimension::fromString(const std::string& text)
{
    const auto tokens = splitTokens(text, ",");
    if (tokens.size() < 2)
        return;
    width = parseFloat(tokens[0]);
    height = parseFloat(tokens[1]);
    if (tokens.size() >= 3)
        depth = parseFloat(tokens[2]);
}

void Dimension::set(float w, float h, float d)
{
    width = w;
    height = h;
    depth = d;
}

void Dimension::set(float w, float h)
{
    width = w;
    height = h;
}

void Dimension::assign(const Dimension& other)
{
    set(other.getWidth(), other.getHeight(), other.getDepth());
}

void Dimension::fromStringWxH(const std::string& text)
{
    const auto tokens = splitTokens(text, " x");
    if (tokens.size() < 2)
        return;
    width = parseFloat(tokens[0]);
    height = parseFloat(tokens[1]);
}
