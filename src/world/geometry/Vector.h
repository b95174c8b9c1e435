#pragma once
// A four-component vector: positions, velocities, forces and plane normals.
// Planar operations use x and y only; z is a drawing depth and w rides along.
#include <memory>
#include <string>

class Vector {
public:
    float x = 0.0f, y = 0.0f, z = 0.0f, w = 0.0f;

    Vector() = default;
    Vector(float x_, float y_, float z_ = 0.0f, float w_ = 0.0f) : x(x_), y(y_), z(z_), w(w_) {}
    // Copies carry the four components only: the text is a cache that
    // toString rebuilds on every call.
    Vector(const Vector& o) : x(o.x), y(o.y), z(o.z), w(o.w) {}
    Vector& operator=(const Vector& o)
    {
        x = o.x;
        y = o.y;
        z = o.z;
        w = o.w;
        return *this;
    }
    virtual ~Vector() = default;

    // "x,y,z" (w is never written); also cached for callers that keep a c_str.
    virtual const std::string& toString();
    // Two tokens set x and y; three or more set x, y, z; fewer leave it unchanged.
    virtual void fromString(const std::string& text);
    // Copies x, y, z; w is untouched.
    virtual void assign(const Vector& other);
    virtual void set(float nx, float ny);
    virtual void set(float nx, float ny, float nz);
    virtual bool equals(const Vector& other) const;
    virtual bool isZero() const;

    Vector operator+(const Vector& o) const { return {x + o.x, y + o.y, z + o.z, w + o.w}; }
    Vector operator-(const Vector& o) const { return {x - o.x, y - o.y, z - o.z, w - o.w}; }
    Vector operator*(float s) const { return {x * s, y * s, z * s, w * s}; }
    Vector& operator+=(const Vector& o);
    Vector& operator*=(float s);
    void normalise();
    float dot(const Vector& o) const { return x * o.x + y * o.y + z * o.z + w * o.w; }
    float dot2(const Vector& o) const { return x * o.x + y * o.y; }
    float length2D() const;
    float distance2D(const Vector& o) const;

private:
    // Made on the first toString: a string in every vertex made each one
    // 56 bytes, and polygon loops paid for it in cache misses.
    std::unique_ptr<std::string> text;
};
