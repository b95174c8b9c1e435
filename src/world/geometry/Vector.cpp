#include "world/geometry/Vector.h"

#include <cmath>

#include "world/geometry/TextForm.h"

const std::string& Vector::toString()
{
    if (!text)
        text = std::make_unique<std::string>();
    *text = formatFloat(x) + "," + formatFloat(y) + "," + formatFloat(z);
    return *text;
}

void Vector::fromString(const std::string& value)
{
    float c[3];
    const int count = readFloatList(value.c_str(), c, 3);
    if (count < 2)
        return;
    x = c[0];
    y = c[1];
    if (count >= 3)
        z = c[2];
}

void Vector::assign(const Vector& other) { set(other.x, other.y, other.z); }

void Vector::set(float nx, float ny) { set(nx, ny, 0.0f); }

void Vector::set(float nx, float ny, float nz)
{
    x = nx;
    y = ny;
    z = nz;
}

bool Vector::equals(const Vector& other) const
{
    return x == other.x && y == other.y && z == other.z;
}

bool Vector::isZero() const { return x == 0.0f && y == 0.0f && z == 0.0f; }

Vector& Vector::operator+=(const Vector& o)
{
    x += o.x;
    y += o.y;
    z += o.z;
    w += o.w;
    return *this;
}

Vector& Vector::operator*=(float s)
{
    x *= s;
    y *= s;
    z *= s;
    w *= s;
    return *this;
}

void Vector::normalise()
{
    // A zero vector stays zero rather than turning into NaNs.
    const float len = std::sqrt(x * x + y * y + z * z + w * w);
    if (len == 0.0f)
        return;
    x /= len;
    y /= len;
    z /= len;
    w /= len;
}

float Vector::length2D() const { return std::sqrt(x * x + y * y); }

float Vector::distance2D(const Vector& o) const
{
    const float dx = x - o.x;
    const float dy = y - o.y;
    return std::sqrt(dx * dx + dy * dy);
}
