#pragma once
// Width, height and depth; the video mode uses the "640 x 480" text form.
#include <string>

class Dimension {
public:
    float width = 0.0f, height = 0.0f, depth = 0.0f;

    Dimension() = default;
    Dimension(float w, float h, float d = 0.0f) : width(w), height(h), depth(d) {}
    Dimension(const Dimension&) = default;
    Dimension& operator=(const Dimension&) = default;
    virtual ~Dimension() = default;

    virtual float getWidth() const { return width; }
    virtual float getHeight() const { return height; }
    virtual float getDepth() const { return depth; }
    virtual std::string widthString() const;
    virtual std::string heightString() const;
    virtual std::string depthString() const;
    // "w,h,d"
    virtual std::string toString() const;
    // "w x h"
    virtual std::string toStringWxH() const;
    virtual void fromString(const std::string& text);
    virtual void set(float w, float h, float d);
    virtual void set(float w, float h);
    virtual void assign(const Dimension& other);
    virtual void fromStringWxH(const std::string& text);
    virtual void setWidth(float w) { width = w; }
    virtual void setHeight(float h) { height = h; }
    virtual void setDepth(float d) { depth = d; }
};
