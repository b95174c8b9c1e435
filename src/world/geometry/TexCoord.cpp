#include "world/geometry/TexCoord.h"

#include "world/geometry/TextForm.h"

std::string TexCoord::toString() const { return formatFloat(u) + "," + formatFloat(v); }

void TexCoord::fromString(const std::string& text)
{
    float uv[2];
    if (readFloatList(text.c_str(), uv, 2) != 2)
        return;
    u = uv[0];
    v = uv[1];
}
