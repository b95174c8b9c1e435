#include "world/geometry/TextForm.h"

#include <cstdlib>
#include <sstream>

std::vector<std::string> splitTokens(const std::string& text, const std::string& separators)
{
    std::vector<std::string> tokens;
    std::string current;
    for (const char c : text) {
        if (separators.find(c) != std::string::npos) {
            if (!current.empty()) {
                tokens.push_back(current);
                current.clear();
            }
        } else {
            current += c;
        }
    }
    if (!current.empty())
        tokens.push_back(current);
    return tokens;
}

std::string formatFloat(float value)
{
    std::ostringstream out;
    out << value;
    return out.str();
}

float parseFloat(const std::string& token)
{
    return static_cast<float>(std::atof(token.c_str()));
}

int readFloatList(const char* text, float* out, int most)
{
    int count = 0;
    for (const char* p = text; p && *p;) {
        if (*p == ',') {
            ++p;
            continue;
        }
        // strtod stops at the comma, so it reads exactly what atof reads of the item.
        if (count < most)
            out[count] = static_cast<float>(std::strtod(p, nullptr));
        ++count;
        while (*p && *p != ',')
            ++p;
    }
    return count;
}
