#include "console/GameVar.h"

#include "console/ConsolePrint.h"

#include <cfloat>
#include <cstdio>
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

void GameVar::setRange(double low, double high) {
    hasRange = true;
    minValue = low;
    maxValue = high;
}

bool GameVar::inRange(double value) const {
    if (!hasRange) {
        return true;
    }
    if (value >= minValue && value <= maxValue) {
        return true;
    }
    std::ostringstream message;
    message << name << " must be between " << minValue << " and " << maxValue;
    std::printf("%s\n", message.str().c_str());
    conPrint(message.str());
    return false;
}

void GameVar::setString(const std::string& text) {
    if (!inRange(std::strtod(text.c_str(), nullptr))) {
        return;
    }
    // A ranged integer shows the value in use, not "5.7" or "1e2".
    const std::string value =
        hasRange && type == TypeInt ? std::to_string(parseInt(text)) : text;
    if (value != stringValue) {
        changed = true;
    }
    stringValue = value;
    intValue = parseInt(value);
    floatValue = parseFloat(value);
    if (onChange) {
        onChange();
    }
}

void GameVar::setInt(int32_t value) {
    if (!inRange(value)) {
        return;
    }
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

bool GameVar::isDefault() const {
    if (type == TypeString) {
        return stringValue == defaultValue;
    }
    return intValue == parseInt(defaultValue) && floatValue == parseFloat(defaultValue);
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
