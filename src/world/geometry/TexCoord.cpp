#include "world/geometry/TexCoord.h"

#include "world/geometry/TextForm.h"

std::string TexCoord::toString() const { return formatFloat(u) + "," + formatFloat(v); }

void TexCoord::fromString(const std::string& text)
{
    const auto tokens = splitTokens(text, ",");
    if (tokens.size() != 2)
        return;
    u = parseFloat(tokens[0]);
    v = parseFloat(tokens[1]);
}
