#include "menus/CutScene.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include <tinyxml.h>

#include "resources/ResourceManager.h"

namespace {
constexpr float coordinateLimit = 10000.0f;

std::string text(const TiXmlElement& e, const char* key)
{
    const char* v = e.Attribute(key);
    return v ? v : "";
}

// Page coordinates from atof, kept finite and within reach of the page.
float number(const TiXmlElement& e, const char* key, float minimum)
{
    const char* v = e.Attribute(key);
    const float f = v ? static_cast<float>(std::atof(v)) : 0.0f;
    if (!std::isfinite(f))
        return minimum;
    return std::fmax(minimum, std::fmin(coordinateLimit, f));
}

CutScene::Box box(const TiXmlElement& e)
{
    CutScene::Box b;
    b.x = number(e, "x", -coordinateLimit);
    b.y = number(e, "y", -coordinateLimit);
    b.width = number(e, "width", 0.0f);
    b.height = number(e, "height", 0.0f);
    return b;
}

// The element's text, with each <br/> as a line break (the parser folds
// the file's own line breaks into blanks).
std::string bodyText(const TiXmlElement& e)
{
    std::string out;
    for (const TiXmlNode* n = e.FirstChild(); n; n = n->NextSibling()) {
        if (const TiXmlText* t = n->ToText()) {
            std::string piece = t->Value();
            if (!out.empty() && out.back() == '\n')
                piece.erase(0, piece.find_first_not_of(' ') == std::string::npos ? piece.size()
                                                                                 : piece.find_first_not_of(' '));
            out += piece;
        } else if (n->ToElement() && std::string(n->Value()) == "br") {
            while (!out.empty() && out.back() == ' ')
                out.pop_back();
            out += '\n';
        }
    }
    return out;
}

CutScene::Page readPage(const TiXmlElement& e)
{
    CutScene::Page page;
    const std::string background = text(e, "background");
    if (!background.empty())
        page.background = background;
    size_t items = 0;
    for (const TiXmlElement* c = e.FirstChildElement(); c && items < CutScene::maxItemsPerPage;
         c = c->NextSiblingElement()) {
        const std::string kind = c->Value();
        if (kind == "pic") {
            page.pictures.push_back({box(*c), text(*c, "img")});
            ++items;
        } else if (kind == "text") {
            page.texts.push_back({box(*c), bodyText(*c)});
            ++items;
        }
    }
    return page;
}
}

std::string CutScene::pathFor(const std::string& name)
{
    if (name.find(".xml") != std::string::npos)
        return name;
    return "data/adventures/" + name + ".xml";
}

bool CutScene::load(const std::string& path)
{
    *this = CutScene();
    TiXmlDocument doc;
    const TiXmlElement* root = nullptr;
    if (ResourceManager::instance().loadDocument(doc, path))
        root = doc.RootElement();
    if (!root) {
        std::printf("Could not load cutscene file: %s\n", path.c_str());
        return false;
    }
    onend = text(*root, "onend");
    level = text(*root, "level");
    levelspawn = text(*root, "levelspawn");
    for (const TiXmlElement* e = root->FirstChildElement(); e; e = e->NextSiblingElement()) {
        const std::string kind = e->Value();
        if (kind == "scene" && scenes.size() < maxPages)
            scenes.push_back({text(*e, "level"), text(*e, "levelspawn")});
        else if (kind == "cutsceneframe" && pages.size() < maxPages)
            pages.push_back(readPage(*e));
    }
    std::printf("Read cutscene file sucessfully: %s\n", path.c_str());
    return true;
}

const std::string& CutScene::endLevel() const
{
    return level.empty() && !scenes.empty() ? scenes.front().level : level;
}

const std::string& CutScene::endSpawn() const
{
    return level.empty() && !scenes.empty() ? scenes.front().levelspawn : levelspawn;
}
