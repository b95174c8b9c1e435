#pragma once
// One particle effect definition as read from the definitions file: where
// particles start, how they move, recolour and resize, and how long they and
// their system live. Plain data; systems keep a pointer to the record the
// manager owns.
#include <string>
#include <vector>

#include "world/geometry/Dimension.h"
#include "world/geometry/RGBAColour.h"
#include "world/geometry/Vector.h"

class TiXmlElement;

class ParticleSystemParams {
public:
    // Hostile files cannot ask for unbounded pools or emission.
    static constexpr int maxPoolSize = 10000;
    static constexpr int maxFlowRate = 100000;
    static constexpr float maxMagnitude = 1.0e6f;

    virtual ~ParticleSystemParams() = default;

    // Fills every field from the element's attributes. Absent optional
    // attributes keep their defaults; absent required ones read as zero and
    // are listed in `missing`. Absurd numbers are clamped to sane bounds.
    void read(const TiXmlElement& element, std::vector<std::string>& missing);

    // The leading decimal number of the text ("12abc" is 12, "abc" is 0);
    // never infinite or NaN.
    static double leadingNumber(const char* text);

    std::string id;
    std::string texture;
    int flowRate = 0;
    int initialParticles = 0;
    int maxParticles = 32;
    Vector posVarLow, posVarHigh;
    Vector vel;
    Vector velVarLow, velVarHigh;
    Vector acc;
    Vector accVarLow, accVarHigh;
    RGBAColour colour;
    RGBAColour colourVarLow, colourVarHigh;
    RGBAColour colourVel;
    RGBAColour colourVelVarLow, colourVelVarHigh;
    Dimension dimension;
    Dimension dimensionVarLow, dimensionVarHigh;
    Dimension endDimension;
    Dimension endDimensionVarLow, endDimensionVarHigh;
    float systemLifeTime = 0.0f;
    float particleLifeTime = 0.0f;
    Dimension particleLifeTimeVar;
    // 2 is alpha blending; every other value is additive.
    int blendMode = 0;
    std::string generationShape;
    float generationShapeVar1 = 0.0f;
    float generationShapeVar2 = 0.0f;
    int animFPS = 0;
    int glowSteps = 1;
};
