#include "world/level/LevelValues.h"

#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>

std::string attributeText(const TiXmlElement* element, const char* name)
{
    if (!element)
        return std::string();
    const char* value = element->Attribute(name);
    return value ? std::string(value) : std::string();
}

bool hasValue(const TiXmlElement* element, const char* name)
{
    if (!element)
        return false;
    const char* value = element->Attribute(name);
    return value && *value;
}

int readInt(const std::string& text)
{
    size_t i = 0;
    while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i])))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        negative = text[i] == '-';
        ++i;
    }
    long long value = 0;
    for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > static_cast<long long>(INT_MAX) + 1)
            value = static_cast<long long>(INT_MAX) + 1;
    }
    if (negative)
        value = -value;
    if (value > INT_MAX)
        return INT_MAX;
    if (value < INT_MIN)
        return INT_MIN;
    return static_cast<int>(value);
}

float readFloat(const std::string& text) { return readFloat(text.c_str()); }

float readFloat(const char* text)
{
    const double value = std::strtod(text, nullptr);
    const float f = static_cast<float>(value);
    return std::isfinite(f) ? f : 0.0f;
}

float readTime(const std::string& text)
{
    return std::clamp(readFloat(text), -maxTimeMs, maxTimeMs);
}

std::string writeFloat(float value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%f", static_cast<double>(value));
    return buffer;
}

std::string writeInt(int value) { return std::to_string(value); }

namespace {
AttributeNameProbe* attributeNameProbe = nullptr;
}

AttributeNameProbe* setAttributeNameProbe(AttributeNameProbe* probe)
{
    AttributeNameProbe* previous = attributeNameProbe;
    attributeNameProbe = probe;
    return previous;
}

bool sameName(const std::string& a, const std::string& b)
{
    if (attributeNameProbe)
        attributeNameProbe->compared(b);
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}
