#pragma once
// Reading and writing the text values of level files and saved games. Level
// files are untrusted, so numbers read the way atoi/atof would, but never
// overflow: absurd integers saturate and non-finite numbers read as 0.
#include <string>

class TiXmlElement;

// The attribute's text, or "" when the element or the attribute is missing.
std::string attributeText(const TiXmlElement* element, const char* name);
// True when the attribute exists and is not empty.
bool hasValue(const TiXmlElement* element, const char* name);

// atoi semantics (leading blanks, optional sign, digits), saturating.
int readInt(const std::string& text);
// atof semantics; anything non-finite reads as 0.
float readFloat(const std::string& text);
float readFloat(const char* text);
// A time in milliseconds (level clock or a duration): readFloat within
// +-maxTimeMs, about eleven days, so sums and whole-second counts never overflow.
constexpr float maxTimeMs = 1.0e9f;
float readTime(const std::string& text);
// Only the exact text "true" is true.
inline bool readBool(const std::string& text) { return text == "true"; }

// "%f" form of a number, decimal form of an integer, "true"/"false".
std::string writeFloat(float value);
std::string writeInt(int value);
inline const char* writeBool(bool value) { return value ? "true" : "false"; }

// Case-insensitive comparison of ASCII names (level attribute names).
bool sameName(const std::string& a, const std::string& b);

// While one is installed, sameName() hands it every name a body compares an
// attribute against, so the level tools learn which attributes each body
// type reads straight from its readAttributes code.
class AttributeNameProbe {
public:
    virtual ~AttributeNameProbe() = default;
    virtual void compared(const std::string& knownName) = 0;
};
// Installs `probe` (null removes it); returns the one it replaces.
AttributeNameProbe* setAttributeNameProbe(AttributeNameProbe* probe);
