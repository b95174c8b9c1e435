#include "world/level/PlaceholderBody.h"

PlaceholderBody::PlaceholderBody(const std::string& typeName) { type = typeName; }

std::unique_ptr<Body> PlaceholderBody::clone() const { return std::make_unique<PlaceholderBody>(type); }
