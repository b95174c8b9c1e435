#include "particles/ParticleSystemParams.h"

#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

namespace {
float bounded(double v)
{
    const double m = ParticleSystemParams::maxMagnitude;
    return static_cast<float>(std::max(-m, std::min(m, v)));
}

float bounded(float v) { return bounded(static_cast<double>(v)); }

// Vector, colour and dimension parsers accept "inf" and "nan" (atof); the
// simulation must never see them.
void sanitise(Vector& v)
{
    v.x = std::isfinite(v.x) ? bounded(v.x) : 0.0f;
    v.y = std::isfinite(v.y) ? bounded(v.y) : 0.0f;
    v.z = std::isfinite(v.z) ? bounded(v.z) : 0.0f;
}

void sanitise(RGBAColour& c)
{
    for (float* f : {&c.r, &c.g, &c.b, &c.a})
        *f = std::isfinite(*f) ? bounded(*f) : 0.0f;
}

void sanitise(Dimension& d)
{
    for (float* f : {&d.width, &d.height, &d.depth})
        *f = std::isfinite(*f) ? bounded(*f) : 0.0f;
}

int clampedInt(double v, int lo, int hi)
{
    return static_cast<int>(std::max(static_cast<double>(lo), std::min(static_cast<double>(hi), v)));
}

class AttributeReader {
public:
    AttributeReader(const TiXmlElement& e, std::vector<std::string>& m) : element(e), missing(m) {}

    const char* text(const char* name, bool required)
    {
        const char* value = element.Attribute(name);
        if (!value && required)
            missing.emplace_back(name);
        return value;
    }

    void read(const char* name, std::string& out, bool required = true)
    {
        if (const char* v = text(name, required))
            out = v;
    }
    void read(const char* name, int& out, int lo, int hi, bool required = true)
    {
        if (const char* v = text(name, required))
            out = clampedInt(ParticleSystemParams::leadingNumber(v), lo, hi);
    }
    void read(const char* name, float& out, bool required = true)
    {
        if (const char* v = text(name, required))
            out = bounded(ParticleSystemParams::leadingNumber(v));
    }
    template <typename T> void read(const char* name, T& out, bool required = true)
    {
        if (const char* v = text(name, required))
            out.fromString(v);
        sanitise(out);
    }

private:
    const TiXmlElement& element;
    std::vector<std::string>& missing;
};
}

double ParticleSystemParams::leadingNumber(const char* text)
{
    if (!text)
        return 0.0;
    const char* p = text;
    while (*p && std::isspace(static_cast<unsigned char>(*p)))
        ++p;
    // Only [sign] digits [. digits] [exponent]: no hex, "inf" or "nan".
    const char* start = p;
    if (*p == '+' || *p == '-')
        ++p;
    const char* digits = p;
    while (std::isdigit(static_cast<unsigned char>(*p)))
        ++p;
    if (*p == '.') {
        ++p;
        while (std::isdigit(static_cast<unsigned char>(*p)))
            ++p;
    }
    if (p == digits || (p == digits + 1 && *digits == '.'))
        return 0.0;
    if (*p == 'e' || *p == 'E') {
        const char* e = p + 1;
        if (*e == '+' || *e == '-')
            ++e;
        if (std::isdigit(static_cast<unsigned char>(*e))) {
            p = e;
            while (std::isdigit(static_cast<unsigned char>(*p)))
                ++p;
        }
    }
    const std::string number(start, p);
    const double v = std::strtod(number.c_str(), nullptr);
    return std::isfinite(v) ? v : 0.0;
}

void ParticleSystemParams::read(const TiXmlElement& element, std::vector<std::string>& missing)
{
    AttributeReader r(element, missing);
    r.read("id", id);
    r.read("texture", texture);
    r.read("flowRate", flowRate, 0, maxFlowRate);
    r.read("initialParticles", initialParticles, 0, maxPoolSize);
    r.read("maxParticles", maxParticles, 0, maxPoolSize, false);
    r.read("posVarLow", posVarLow);
    r.read("posVarHigh", posVarHigh);
    r.read("vel", vel);
    r.read("velVarLow", velVarLow);
    r.read("velVarHigh", velVarHigh);
    r.read("acc", acc);
    r.read("accVarLow", accVarLow);
    r.read("accVarHigh", accVarHigh);
    r.read("colour", colour);
    r.read("colourVarLow", colourVarLow);
    r.read("colourVarHigh", colourVarHigh);
    r.read("colourVel", colourVel);
    r.read("colourVelVarLow", colourVelVarLow);
    r.read("colourVelVarHigh", colourVelVarHigh);
    r.read("dimension", dimension);
    r.read("dimensionVarLow", dimensionVarLow);
    r.read("dimensionVarHigh", dimensionVarHigh);
    r.read("endDimension", endDimension);
    r.read("endDimensionVarLow", endDimensionVarLow);
    r.read("endDimensionVarHigh", endDimensionVarHigh);
    r.read("systemLifeTime", systemLifeTime);
    r.read("particleLifeTime", particleLifeTime);
    r.read("particleLifeTimeVar", particleLifeTimeVar);
    r.read("blendMode", blendMode, -maxFlowRate, maxFlowRate);
    r.read("generationShape", generationShape, false);
    r.read("generationShapeVar1", generationShapeVar1);
    r.read("generationShapeVar2", generationShapeVar2);
    r.read("animFPS", animFPS, -maxFlowRate, maxFlowRate);
    r.read("glowSteps", glowSteps, 1, 64, false);
}
