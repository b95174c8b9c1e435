#include "world/geometry/RGBAColour.h"

#include "world/geometry/TextForm.h"

std::string RGBAColour::rString() const { return formatFloat(r); }
std::string RGBAColour::gString() const { return formatFloat(g); }
std::string RGBAColour::bString() const { return formatFloat(b); }
std::string RGBAColour::aString() const { return formatFloat(a); }

std::string RGBAColour::toString() const
{
    return rString() + "," + gString() + "," + bString() + "," + aString();
}

void RGBAColour::fromString(const std::string& text)
{
    float c[4];
    if (readFloatList(text.c_str(), c, 4) == 4)
        set(c[0], c[1], c[2], c[3]);
}

void RGBAColour::set(float nr, float ng, float nb)
{
    r = nr;
    g = ng;
    b = nb;
}

void RGBAColour::set(float nr, float ng, float nb, float na)
{
    set(nr, ng, nb);
    a = na;
}

void RGBAColour::assign(const RGBAColour& o) { set(o.getR(), o.getG(), o.getB(), o.getA()); }
void RGBAColour::rFromString(const std::string& text) { r = parseFloat(text); }
void RGBAColour::gFromString(const std::string& text) { g = parseFloat(text); }
void RGBAColour::bFromString(const std::string& text) { b = parseFloat(text); }
void RGBAColour::aFromString(const std::string& text) { a = parseFloat(text); }
