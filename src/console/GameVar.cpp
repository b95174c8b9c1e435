#include "console/GameVar.h"

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <utility>

GameVar::GameVar(std::string name, std::string description)
    : name(std::move(name)), description(std::move(description)) {}

int32_t GameVar::parseInt(const std::string& text) {
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value > std::numeric_limits<int32_t>::max()) {
        return std::numeric_limits<int32_t>::max();
    }
    if (value < std::numeric_limits<int32_t>::min()) {
        return std::numeric_limits<int32_t>::min();
    }
    return static_cast<int32_t>(value);
}

float GameVar::parseFloat(const std::string& text) {
    const double value = std::strtod(text.c_str(), nullptr);
    if (std::isnan(value)) {
        return std::numeric_limits<float>::quiet_NaN();
    }
    if (value > FLT_MAX) {
        return std::numeric_limits<float>::infinity();
    }
    if (value < -FLT_MAX) {
        return -std::numeric_limits<float>::infinity();
    }
    return static_cast<float>(value);
}

void GameVar::setString(const std::string& text) {
    if (text != stringValue) {
        changed = true;
    }
    stringValue = text;
    intValue = parseInt(text);
    floatValue = parseFloat(text);
    if (onChange) {
        onChange();
    }
}

void GameVar::setInt(int32_t value) {
    if (value != intValue) {
        changed = true;
    }
    stringValue = std::to_string(value);
    floatValue = static_cast<float>(value);
    intValue = value;
    if (onChange) {
        onChange();
    }
}

void GameVar::setType(const std::string& typeName) {
    if (typeName == "int") {
        type = TypeInt;
    } else if (typeName == "float") {
        type = TypeFloat;
    } else if (typeName == "string") {
        type = TypeString;
    }
}

std::string GameVar::configLine() const {
    if (type == TypeNone) {
        return std::string();
    }
    std::ostringstream line;
    line << name << ' ';
    switch (type) {
    case TypeInt:
        line << intValue;
        break;
    case TypeFloat:
        line << floatValue;
        break;
    default:
        line << stringValue;
        break;
    }
    return line.str();
}
