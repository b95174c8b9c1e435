#pragma once
// A colour on the 0-255 scale, written "r,g,b,a" in level and definition files.
// No clamping: effects rely on values drifting past the ends.
#include <string>

class RGBAColour {
public:
    float r = 0.0f, g = 0.0f, b = 0.0f, a = 0.0f;

    RGBAColour() = default;
    RGBAColour(float r_, float g_, float b_, float a_ = 255.0f) : r(r_), g(g_), b(b_), a(a_) {}
    RGBAColour(const RGBAColour&) = default;
    RGBAColour& operator=(const RGBAColour&) = default;
    virtual ~RGBAColour() = default;

    virtual float getR() const { return r; }
    virtual float getG() const { return g; }
    virtual float getB() const { return b; }
    virtual float getA() const { return a; }
    virtual std::string rString() const;
    virtual std::string gString() const;
    virtual std::string bString() const;
    virtual std::string aString() const;
    virtual std::string toString() const;
    // Exactly four tokens; any other count leaves the colour unchanged.
    virtual void fromString(const std::string& text);
    virtual void set(float nr, float ng, float nb);
    virtual void set(float nr, float ng, float nb, float na);
    virtual void assign(const RGBAColour& other);
    virtual void rFromString(const std::string& text);
    virtual void setR(float v) { r = v; }
    virtual void gFromString(const std::string& text);
    virtual void setG(float v) { g = v; }
    virtual void bFromString(const std::string& text);
    virtual void setB(float v) { b = v; }
    virtual void aFromString(const std::string& text);
    virtual void setA(float v) { a = v; }

    bool operator==(const RGBAColour& o) const { return r == o.r && g == o.g && b == o.b && a == o.a; }
};
