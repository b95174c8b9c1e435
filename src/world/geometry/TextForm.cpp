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
