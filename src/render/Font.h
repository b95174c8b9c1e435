#pragma once
// One bitmap font at one size: up to 256 character descriptors read from a
// font XML file ("data/fonts/<file>"), plus the names of the texture pages
// they live on.
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "render/CharacterDescriptor.h"

class TiXmlDocument;

class Font {
public:
    static constexpr int codeCount = 256;

    virtual ~Font() = default;

    // Reads "data/fonts/" + fileName; false (and a log line) when it cannot be read.
    virtual bool load(const std::string& fileName);
    // The descriptor of a character code, null when the font lacks it or the code is out of range.
    virtual CharacterDescriptor* getDescriptor(int code) const;
    // Creates (or replaces) the descriptor of a code; null for codes outside 0-255.
    virtual CharacterDescriptor* createDescriptor(int code);
    // max(xadvance, width) of a code; 0 when the font lacks it.
    virtual float getAdvance(int code) const;
    virtual const std::vector<std::string>& getImageNames() const { return imageNames; }

    // Fills the font from a parsed document; false when it is not a font file.
    bool loadDocument(const TiXmlDocument& document);

    std::string name;
    int size = 0;

private:
    std::array<std::unique_ptr<CharacterDescriptor>, codeCount> descriptors;
    std::vector<std::string> imageNames;
};
