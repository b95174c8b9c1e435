#include "menus/Adventure.h"

#include <cstdio>
#include <set>

#include "resources/FileOps.h"
#include "resources/ResourceManager.h"
#include <tinyxml.h>

namespace {
std::string attribute(const TiXmlElement& e, const char* key)
{
    const char* v = e.Attribute(key);
    return v ? v : "";
}
}

bool Adventure::load(const std::string& path, Adventure& out)
{
    TiXmlDocument doc;
    const TiXmlElement* root = nullptr;
    if (ResourceManager::instance().loadDocument(doc, path))
        root = doc.RootElement();
    if (!root) {
        std::printf("Can't load save file: %s\n", path.c_str());
        return false;
    }
    // Cut-scene files share the folder; they are not adventures.
    if (std::string(root->Value()) != "adventure")
        return false;
    out.file = path;
    out.name = attribute(*root, "name");
    out.startlevel = attribute(*root, "startlevel");
    out.description = attribute(*root, "description");
    out.cutscene = attribute(*root, "cutscene");
    // A long description reads better as the element's text.
    if (const TiXmlElement* d = root->FirstChildElement("description"))
        if (const char* text = d->GetText())
            out.description = text;
    if (out.name.empty())
        out.name = path;
    if (out.startlevel.empty()) {
        std::printf("Adventure has no startlevel: %s\n", path.c_str());
        return false;
    }
    return true;
}

std::vector<Adventure> Adventure::listAll()
{
    std::set<std::string> names;
    FileOps::listFolder(folder, "*.xml", names);
    ResourceManager::instance().listFiles(folder, "*.xml", names);
    std::vector<Adventure> adventures;
    for (const std::string& name : names) {
        Adventure a;
        if (load(std::string(folder) + "/" + name, a))
            adventures.push_back(a);
    }
    return adventures;
}
