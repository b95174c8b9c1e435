#include "world/level/TiledProject.h"

#include <cstdio>
#include <fstream>
#include <sstream>

#include "resources/GameDirectories.h"
#include "world/level/LevelSchema.h"

namespace {
using Kind = LevelSchema::Kind;

const char* tiledType(Kind kind)
{
    switch (kind) {
    case Kind::Bool: return "bool";
    case Kind::Int: return "int";
    case Kind::Float: return "float";
    default: return "string";
    }
}

std::string json(const std::string& text)
{
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\u%04x", c);
            out += buffer;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

std::string xml(const std::string& text)
{
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

// The default in Tiled's terms: typed members need a value of their type.
std::string typedDefault(const LevelSchema::Attribute& a, bool forJson)
{
    switch (a.kind) {
    case Kind::Bool: return a.defaultValue == "true" ? "true" : "false";
    case Kind::Int:
    case Kind::Float: return a.defaultValue.empty() ? "0" : a.defaultValue;
    default: return forJson ? json(a.defaultValue) : a.defaultValue;
    }
}

bool writeFile(const std::string& path, const std::string& text, std::string& error)
{
    std::ofstream out(path, std::ios::binary);
    out << text;
    if (!out) {
        error = "could not write " + path;
        return false;
    }
    return true;
}
}

std::string TiledProject::projectJson(const LevelSchema& schema, const std::string& extensionsDir,
                                      const std::string& mapsDir)
{
    std::ostringstream s;
    s << "{\n    \"automappingRulesFile\": \"\",\n    \"commands\": [],\n";
    s << "    \"extensionsPath\": " << json(extensionsDir) << ",\n";
    s << "    \"folders\": [" << (mapsDir.empty() ? "" : json(mapsDir)) << "],\n";
    // Tiled before 1.9 takes object types from this file, later ones from the classes.
    s << "    \"objectTypesFile\": \"objecttypes.xml\",\n";
    s << "    \"propertyTypes\": [";
    int id = 1;
    for (const std::string& type : schema.typeNames()) {
        s << (id > 1 ? "," : "") << "\n        {\n            \"id\": " << id << ",\n";
        ++id;
        s << "            \"name\": " << json(type) << ",\n            \"type\": \"class\",\n";
        s << "            \"useAs\": [\"object\"],\n            \"color\": \"#ffa0a0a4\",\n";
        s << "            \"members\": [";
        bool first = true;
        for (const LevelSchema::Attribute& a : schema.attributesOf(type)) {
            s << (first ? "" : ",") << "\n                { \"name\": " << json(a.name)
              << ", \"type\": " << json(tiledType(a.kind)) << ", \"value\": " << typedDefault(a, true) << " }";
            first = false;
        }
        s << (first ? "]" : "\n            ]") << "\n        }";
    }
    s << "\n    ]\n}\n";
    return s.str();
}

std::string TiledProject::objectTypesXml(const LevelSchema& schema)
{
    std::ostringstream s;
    s << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<objecttypes>\n";
    for (const std::string& type : schema.typeNames()) {
        s << " <objecttype name=\"" << xml(type) << "\" color=\"#a0a0a4\">\n";
        for (const LevelSchema::Attribute& a : schema.attributesOf(type))
            s << "  <property name=\"" << xml(a.name) << "\" type=\"" << tiledType(a.kind) << "\" default=\""
              << xml(typedDefault(a, false)) << "\"/>\n";
        s << " </objecttype>\n";
    }
    s << "</objecttypes>\n";
    return s.str();
}

std::string TiledProject::referenceMarkdown(const LevelSchema& schema)
{
    std::ostringstream s;
    s << "# Body types and their attributes\n\n"
         "Every body type a level may use, with the attributes it reads (names match without regard to\n"
         "case). A default of \"-\" means the type chooses its own. Every type also takes the params of\n"
         "its polygon (solid, entity, texture, mass, ...), shown as properties in Tiled.\n";
    for (const std::string& type : schema.typeNames()) {
        s << "\n## " << type << "\n\n";
        const auto& attributes = schema.attributesOf(type);
        if (attributes.empty()) {
            s << "No attributes.\n";
            continue;
        }
        s << "| Attribute | Kind | Default | Meaning |\n|---|---|---|---|\n";
        for (const LevelSchema::Attribute& a : attributes)
            s << "| " << a.name << " | " << LevelSchema::kindName(a.kind) << " | "
              << (a.defaultValue.empty() ? "-" : a.defaultValue) << " | " << a.help << " |\n";
    }
    return s.str();
}

bool TiledProject::write(const LevelSchema& schema, const std::string& dir, const std::string& extensionsDir,
                         const std::string& mapsDir, std::string& error)
{
    if (!GameDirectories::makeDirectories(dir)) {
        error = "could not create " + dir;
        return false;
    }
    return writeFile(dir + "/brindlequay.tiled-project", projectJson(schema, extensionsDir, mapsDir), error) &&
           writeFile(dir + "/objecttypes.xml", objectTypesXml(schema), error) &&
           writeFile(dir + "/bodytypes.md", referenceMarkdown(schema), error);
}
