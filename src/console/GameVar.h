#pragma once

#include <cstdint>
#include <functional>
#include <string>

// One named setting of the game. The value is held as text, as an integer and
// as a float at once, so each reader takes the form it needs; the three are
// consistent after every set. Readers keep the pointer from getVar() and read
// the fields whenever they need the value.
class GameVar {
public:
    // How the value is written to configuration files; TypeNone is not written.
    enum Type { TypeNone = 0, TypeInt = 1, TypeFloat = 2, TypeString = 3 };

    GameVar() = default;
    explicit GameVar(std::string name, std::string description = std::string());
    virtual ~GameVar() = default;

    // Sets the value from text; the numbers are read from its start as atoi
    // and atof would (a non-number reads as 0). Marks `changed` when the text
    // differs, then calls onChange whether or not it changed.
    void setString(const std::string& text);
    // Sets the value from an integer; marks `changed` when the integer differs,
    // then calls onChange.
    void setInt(int32_t value);
    // Declares the values the variable accepts; a set outside them (or a
    // value that is not a number) is refused with a message and changes
    // nothing, whether it comes from the console, a script or the command line.
    void setRange(double low, double high);
    bool inRange(double value) const;
    // "int", "float" or "string"; any other name leaves the type as it is.
    void setType(const std::string& typeName);
    // "name value" as written to configuration scripts; "" for TypeNone.
    std::string configLine() const;
    // Whether the value is the declared one; numbers compare by value, so
    // "-80.0" is still the default "-80".
    bool isDefault() const;

    std::string name;                  // lower case
    std::string stringValue;
    std::string description;           // help text shown by listvars
    std::string defaultValue;          // the value it was declared with
    int32_t intValue = 0;
    float floatValue = 0.0f;
    bool changed = false;              // cleared by the reader that reacts to it
    std::function<void()> onChange;    // called after every set; may be empty
    int type = TypeNone;
    bool hasRange = false;
    double minValue = 0.0;
    double maxValue = 0.0;

    // Text to number the way atoi/atof read it, but saturating instead of
    // overflowing on absurd input.
    static int32_t parseInt(const std::string& text);
    static float parseFloat(const std::string& text);
};
