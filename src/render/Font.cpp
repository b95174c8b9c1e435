#include "render/Font.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "resources/ResourceManager.h"

namespace {
std::string attribute(const TiXmlElement* element, const char* key)
{
    const char* value = element->Attribute(key);
    return value ? value : "";
}

int intAttribute(const TiXmlElement* element, const char* key)
{
    return std::atoi(attribute(element, key).c_str());
}

float floatAttribute(const TiXmlElement* element, const char* key)
{
    return static_cast<float>(std::atof(attribute(element, key).c_str()));
}
}

bool Font::load(const std::string& fileName)
{
    const std::string path = "data/fonts/" + fileName;
    TiXmlDocument document;
    if (!ResourceManager::instance().loadDocument(document, path) || !loadDocument(document)) {
        std::printf("Could not load font file '%s'\n", path.c_str());
        return false;
    }
    return true;
}

bool Font::loadDocument(const TiXmlDocument& document)
{
    const TiXmlElement* root = document.RootElement();
    if (document.Error() || !root)
        return false;
    name = attribute(root, "name");
    size = intAttribute(root, "size");

    if (const TiXmlElement* list = root->FirstChildElement("descriptors")) {
        for (const TiXmlElement* e = list->FirstChildElement(); e; e = e->NextSiblingElement()) {
            CharacterDescriptor* d = createDescriptor(intAttribute(e, "charcode"));
            if (!d)
                continue;
            d->imageName = attribute(e, "image");
            d->x = intAttribute(e, "x");
            d->y = intAttribute(e, "y");
            d->px = intAttribute(e, "px");
            d->py = intAttribute(e, "py");
            d->pixelWidth = intAttribute(e, "pwidth");
            d->pixelHeight = intAttribute(e, "pheight");
            d->width = intAttribute(e, "width");
            d->height = intAttribute(e, "height");
            d->left = intAttribute(e, "left");
            d->top = intAttribute(e, "top");
            d->xAdvance = floatAttribute(e, "xadvance");
            d->s = floatAttribute(e, "s");
            d->t = floatAttribute(e, "t");
            d->s2 = floatAttribute(e, "s2");
            d->t2 = floatAttribute(e, "t2");
        }
    }
    if (const TiXmlElement* index = root->FirstChildElement("imageindex")) {
        for (const TiXmlElement* e = index->FirstChildElement(); e; e = e->NextSiblingElement()) {
            const std::string file = attribute(e, "filename");
            if (!file.empty() && std::find(imageNames.begin(), imageNames.end(), file) == imageNames.end())
                imageNames.push_back(file);
        }
    }
    return true;
}

CharacterDescriptor* Font::getDescriptor(int code) const
{
    if (code < 0 || code >= codeCount)
        return nullptr;
    return descriptors[static_cast<size_t>(code)].get();
}

CharacterDescriptor* Font::createDescriptor(int code)
{
    if (code < 0 || code >= codeCount)
        return nullptr;
    auto& slot = descriptors[static_cast<size_t>(code)];
    slot = std::make_unique<CharacterDescriptor>();
    slot->charCode = code;
    return slot.get();
}

float Font::getAdvance(int code) const
{
    const CharacterDescriptor* d = getDescriptor(code);
    if (!d)
        return 0.0f;
    return std::max(d->xAdvance, static_cast<float>(d->width));
}
