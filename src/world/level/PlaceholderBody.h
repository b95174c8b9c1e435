#pragma once
// Stands in for a level type whose class does not exist yet: a plain static
// body that keeps the type name it was registered under, so levels load (and
// save) with the right names while the game grows. Each entry of the type
// table is switched to its real class when that class is written.
#include <memory>
#include <string>

#include "world/body/Body.h"

class PlaceholderBody : public Body {
public:
    explicit PlaceholderBody(const std::string& typeName);

    std::unique_ptr<Body> clone() const override;
};
