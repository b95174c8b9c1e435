#include "world/level/LevelChecker.h"

#include <tinyxml.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "resources/ResourceManager.h"
#include "sound/Music.h"
#include "world/geometry/TextForm.h"
#include "world/level/LevelLoader.h"
#include "world/level/LevelValues.h"

namespace {
using Kind = LevelSchema::Kind;

struct Point {
    double x = 0.0, y = 0.0;
};

struct Box {
    double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
    bool overlaps(const Box& o) const { return minX < o.maxX && o.minX < maxX && minY < o.maxY && o.minY < maxY; }
};

const char* const paramNames[] = {"targets", "solid", "entity", "outlined", "outlinecolour", "outlinewidth",
                                  "texhscale", "texhshift", "texvscale", "texvshift", "texrotate", "texture",
                                  "textured", "visible", "z-shift", "mass"};

Kind paramKind(const std::string& name)
{
    if (name == "solid" || name == "entity" || name == "outlined" || name == "textured" || name == "visible")
        return Kind::Bool;
    if (name == "outlinewidth")
        return Kind::Int;
    if (name == "targets" || name == "texture" || name == "outlinecolour")
        return Kind::Text;
    return Kind::Float;
}

bool numbers(const std::string& text, size_t least, size_t most)
{
    const std::vector<std::string> parts = splitTokens(text, ",");
    if (parts.size() < least || parts.size() > most)
        return false;
    return std::all_of(parts.begin(), parts.end(),
                       [](const std::string& p) { return LevelSchema::valueFits(Kind::Float, p); });
}

// How far beyond the static geometry a body may still be reached.
const double levelMargin = 512.0;

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string didYouMean(const std::string& suggestion)
{
    return suggestion.empty() ? std::string() : " (did you mean " + quoted(suggestion) + "?)";
}
}

struct LevelChecker::BodyInfo {
    std::string id, type, label;
    int line = 0;
    bool entity = false;
    std::vector<Point> polygon;
    Box box;
    bool hasBox = false;
    // What the level-wide exit rule needs of a level change.
    std::string leveltarget, targetspawn;
    int targetspawnLine = 0;
    bool iscutscene = false;
};

LevelChecker::LevelChecker(const LevelSchema& s) : schema(s) {}

bool LevelChecker::resourceExists(const std::string& path)
{
    if (path.empty())
        return false;
    if (foundResources.count(path))
        return true;
    if (missingResources.count(path))
        return false;
    std::size_t size = 0;
    bool error = false;
    const bool found = ResourceManager::instance().getBytes(ResourceManager::toNativePath(path), size, error) && !error;
    (found ? foundResources : missingResources).insert(path);
    return found;
}

bool LevelChecker::soundExists(const std::string& name)
{
    if (!mediaTablesRead) {
        mediaTablesRead = true;
        TiXmlDocument sounds;
        if (ResourceManager::instance().loadDocument(sounds, "data/sounds/sounds.xml") && sounds.RootElement())
            for (const TiXmlElement* s = sounds.RootElement()->FirstChildElement("sound"); s;
                 s = s->NextSiblingElement("sound"))
                soundPaths.insert(attributeText(s, "path"));
        TiXmlDocument particles;
        if (ResourceManager::instance().loadDocument(particles, "data/particles/particles.xml") &&
            particles.RootElement())
            for (const TiXmlElement* p = particles.RootElement()->FirstChildElement(); p;
                 p = p->NextSiblingElement())
                particleIds.insert(attributeText(p, "id"));
    }
    return soundPaths.count(name) || resourceExists(name);
}

bool LevelChecker::spawnPointIn(const std::string& levelPath, const std::string& id)
{
    auto cached = levelSpawns.find(levelPath);
    if (cached == levelSpawns.end()) {
        std::set<std::string> found;
        TiXmlDocument document;
        if (ResourceManager::instance().loadDocument(document, levelPath) && document.RootElement())
            if (const TiXmlElement* objects = document.RootElement()->FirstChildElement("Objects"))
                for (const TiXmlElement* p = objects->FirstChildElement("P"); p; p = p->NextSiblingElement("P"))
                    if (attributeText(p, "type") == "spawnpoint")
                        found.insert(attributeText(p, "idname"));
        cached = levelSpawns.emplace(levelPath, found).first;
    }
    return cached->second.count(id) > 0;
}

bool LevelChecker::particleExists(const std::string& id)
{
    soundExists("");
    return particleIds.count(id) > 0;
}

void LevelChecker::checkAttribute(const BodyInfo& info, const TiXmlElement* a, const std::string& name,
                                  const std::string& value, std::vector<Problem>& problems)
{
    const int line = a->Row();
    auto report = [&](const std::string& message) { problems.push_back({line, info.label + ": " + message}); };
    const LevelSchema::Attribute* attribute = schema.findAttribute(info.type, name);
    if (!attribute) {
        std::vector<std::string> known;
        for (const LevelSchema::Attribute& at : schema.attributesOf(info.type))
            known.push_back(at.name);
        report("unknown attribute " + quoted(name) + didYouMean(LevelSchema::nearest(name, known)));
        return;
    }
    if (!LevelSchema::valueFits(attribute->kind, value)) {
        report("attribute " + quoted(name) + " should be " + LevelSchema::kindName(attribute->kind) + ", not " +
               quoted(value));
        return;
    }
    if (value.empty())
        return;
    switch (attribute->kind) {
    case Kind::BodyType:
        if (!schema.knowsType(value))
            report(quoted(name) + " names unknown type " + quoted(value) +
                   didYouMean(LevelSchema::nearest(value, schema.typeNames())));
        break;
    case Kind::BodyId:
    case Kind::BodyIdList:
        for (const std::string& id : splitTokens(value, ","))
            if (!ids.count(id))
                report(quoted(name) + " names no body: " + quoted(id));
        break;
    case Kind::Texture:
        if (!resourceExists(value))
            report("missing texture " + quoted(value));
        break;
    case Kind::Sound:
        if (!soundExists(value))
            report("missing sound " + quoted(value));
        break;
    case Kind::Particle:
        if (!particleExists(value))
            report("unknown particle effect " + quoted(value));
        break;
    case Kind::Sky:
    case Kind::SkyList:
        for (const std::string& sky : splitTokens(value, ","))
            if (!resourceExists("data/sky/" + sky + ".xml"))
                report("missing sky " + quoted(sky));
        break;
    case Kind::Music:
        if (!Music::isTrackName(value) || !resourceExists(Music::trackPath(value)))
            report("missing music track " + quoted(value));
        break;
    case Kind::Level:
        if (!resourceExists(LevelLoader::resourcePath(LevelLoader::levelPath(value))))
            report(quoted(name) + " names no level: " + quoted(value));
        break;
    case Kind::File: {
        std::string path = value;
        std::replace(path.begin(), path.end(), '\\', '/');
        if (!resourceExists(path))
            report("missing file " + quoted(value));
        break;
    }
    default: break;
    }
}

void LevelChecker::checkBody(const TiXmlElement* p, BodyInfo& info, std::vector<Problem>& problems)
{
    auto report = [&](int line, const std::string& message) {
        problems.push_back({line, info.label + ": " + message});
    };
    if (!p->Attribute("type"))
        report(p->Row(), "has no type");
    else if (info.type != "default" && !schema.knowsType(info.type))
        report(p->Row(), "unknown type " + quoted(info.type) +
                             didYouMean(LevelSchema::nearest(info.type, schema.typeNames())));

    if (const TiXmlElement* params = p->FirstChildElement("params")) {
        for (const TiXmlAttribute* at = params->FirstAttribute(); at; at = at->Next()) {
            const std::string name = at->Name(), value = at->Value();
            const bool known = std::find(std::begin(paramNames), std::end(paramNames), name) != std::end(paramNames);
            if (!known) {
                report(params->Row(), "unknown parameter " + quoted(name) +
                                          didYouMean(LevelSchema::nearest(
                                              name, std::vector<std::string>(std::begin(paramNames),
                                                                             std::end(paramNames)))));
                continue;
            }
            const Kind kind = paramKind(name);
            if (name == "outlinecolour" ? !numbers(value, 4, 4) : !LevelSchema::valueFits(kind, value)) {
                report(params->Row(), "parameter " + quoted(name) + " should be " +
                                          (name == "outlinecolour" ? "a colour r,g,b,a" : LevelSchema::kindName(kind)) +
                                          ", not " + quoted(value));
                continue;
            }
            if (name == "entity")
                info.entity = readBool(value);
            if (name == "texture" && !value.empty() && !resourceExists(value))
                report(params->Row(), "missing texture " + quoted(value));
            if (name == "targets")
                for (const std::string& target : splitTokens(value, ","))
                    if (!ids.count(target))
                        report(params->Row(), "target " + quoted(target) + " names no body");
        }
    }

    for (const TiXmlElement* verts = p->FirstChildElement("verts"); verts;
         verts = verts->NextSiblingElement("verts"))
        for (const TiXmlElement* v = verts->FirstChildElement("v"); v; v = v->NextSiblingElement("v")) {
            const std::string origin = attributeText(v, "origin");
            if (!numbers(origin, 2, 3)) {
                report(v->Row(), "vertex origin " + quoted(origin) + " is not x,y or x,y,z");
                continue;
            }
            const std::vector<std::string> parts = splitTokens(origin, ",");
            const Point point{std::atof(parts[0].c_str()), std::atof(parts[1].c_str())};
            if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
                report(v->Row(), "vertex origin " + quoted(origin) + " is not a finite number");
                continue;
            }
            info.polygon.push_back(point);
            if (v->Attribute("colour") && !numbers(attributeText(v, "colour"), 4, 4))
                report(v->Row(), "vertex colour " + quoted(attributeText(v, "colour")) + " is not r,g,b,a");
            if (v->Attribute("texcoords") && !numbers(attributeText(v, "texcoords"), 2, 2))
                report(v->Row(), "texture coordinate " + quoted(attributeText(v, "texcoords")) + " is not u,v");
        }

    const std::vector<Point>& poly = info.polygon;
    const size_t n = poly.size();
    if (n < 3) {
        report(p->Row(), "polygon has " + std::to_string(n) + " vertices (three or more needed)");
    } else {
        double area2 = 0.0, scale = 0.0;
        bool left = false, right = false;
        for (size_t i = 0; i < n; ++i) {
            const Point& a = poly[i];
            const Point& b = poly[(i + 1) % n];
            const Point& c = poly[(i + 2) % n];
            area2 += a.x * b.y - b.x * a.y;
            const double cross = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
            const double size = std::hypot(b.x - a.x, b.y - a.y) * std::hypot(c.x - b.x, c.y - b.y);
            scale = std::max(scale, size);
            // Straight runs are fine; only real turns either way count.
            if (cross > 1e-9 * size)
                left = true;
            else if (cross < -1e-9 * size)
                right = true;
        }
        if (std::fabs(area2) <= 1e-9 * scale || scale == 0.0)
            report(p->Row(), "polygon is degenerate (no area)");
        else if (left && right)
            report(p->Row(), "polygon is not convex");
        else if (area2 < 0.0)
            report(p->Row(), "polygon winds clockwise (counter-clockwise needed)");
        info.box = {poly[0].x, poly[0].y, poly[0].x, poly[0].y};
        for (const Point& pt : poly) {
            info.box.minX = std::min(info.box.minX, pt.x);
            info.box.maxX = std::max(info.box.maxX, pt.x);
            info.box.minY = std::min(info.box.minY, pt.y);
            info.box.maxY = std::max(info.box.maxY, pt.y);
        }
        info.hasBox = true;
    }

    for (const TiXmlElement* group = p->FirstChildElement("attributes"); group;
         group = group->NextSiblingElement("attributes"))
        for (const TiXmlElement* a = group->FirstChildElement("a"); a; a = a->NextSiblingElement("a")) {
            const std::string name = attributeText(a, "name"), value = attributeText(a, "value");
            if (sameName(name, "leveltarget"))
                info.leveltarget = value;
            if (sameName(name, "iscutscene"))
                info.iscutscene = readBool(value);
            if (sameName(name, "targetspawn")) {
                info.targetspawn = value;
                info.targetspawnLine = a->Row();
            }
            checkAttribute(info, a, name, value, problems);
        }
}

std::vector<LevelChecker::Problem> LevelChecker::checkText(const std::string& text, bool& readable)
{
    std::vector<Problem> problems;
    TiXmlDocument document;
    document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    readable = !document.Error() && document.RootElement();
    if (!readable) {
        problems.push_back({document.ErrorRow(), std::string("not a level file: ") +
                                                     (document.Error() ? document.ErrorDesc() : "no root element")});
        return problems;
    }
    const TiXmlElement* root = document.RootElement();
    const TiXmlElement* objects = root->FirstChildElement("Objects");
    if (!objects) {
        problems.push_back({root->Row(), "no Objects element: the level has no bodies"});
        return problems;
    }

    ids.clear();
    for (const TiXmlElement* p = objects->FirstChildElement("P"); p; p = p->NextSiblingElement("P"))
        ids.insert(attributeText(p, "idname"));

    std::vector<BodyInfo> bodies;
    for (const TiXmlElement* p = objects->FirstChildElement("P"); p; p = p->NextSiblingElement("P")) {
        BodyInfo info;
        info.id = attributeText(p, "idname");
        info.type = attributeText(p, "type");
        info.line = p->Row();
        info.label = "body " + quoted(info.id) + " (" + (info.type.empty() ? "no type" : info.type) + ")";
        checkBody(p, info, problems);
        bodies.push_back(info);
    }

    // Spawn points and exits.
    std::vector<const BodyInfo*> spawns;
    bool exit = false;
    for (const BodyInfo& b : bodies) {
        if (b.type == "spawnpoint")
            spawns.push_back(&b);
        if (b.type == "levelchange" &&
            (b.iscutscene ||
             (!b.leveltarget.empty() &&
              resourceExists(LevelLoader::resourcePath(LevelLoader::levelPath(b.leveltarget))))))
            exit = true;
    }
    // The spawn point a level change asks for must be in the level it loads.
    for (const BodyInfo& b : bodies)
        if (b.type == "levelchange" && !b.iscutscene && !b.targetspawn.empty() && !b.leveltarget.empty()) {
            const std::string path = LevelLoader::resourcePath(LevelLoader::levelPath(b.leveltarget));
            if (resourceExists(path) && !spawnPointIn(path, b.targetspawn))
                problems.push_back({b.targetspawnLine, b.label + ": \"targetspawn\" names no spawn point of level " +
                                                           quoted(b.leveltarget) + ": " + quoted(b.targetspawn)});
        }
    if (spawns.empty())
        problems.push_back({objects->Row(), "no spawn point: the player has nowhere to start"});
    for (size_t i = 0; i < spawns.size(); ++i)
        for (size_t j = i + 1; j < spawns.size(); ++j)
            if (spawns[i]->hasBox && spawns[j]->hasBox && spawns[i]->box.overlaps(spawns[j]->box))
                problems.push_back({spawns[j]->line, spawns[j]->label + ": overlaps spawn point " +
                                                         quoted(spawns[i]->id) + " (line " +
                                                         std::to_string(spawns[i]->line) + ")"});
    // A test room may say on its root element that it has no way out.
    if (!exit && attributeText(root, "noexit") != "true")
        problems.push_back({objects->Row(), "no level change leads to an existing level: the level has no exit"});

    // The level is what its static geometry spans, with room to stand and
    // jump around it; an entity entirely beyond that cannot be reached.
    Box level;
    bool haveLevel = false;
    for (const BodyInfo& b : bodies)
        if (!b.entity && b.hasBox) {
            if (!haveLevel)
                level = b.box;
            level.minX = std::min(level.minX, b.box.minX);
            level.minY = std::min(level.minY, b.box.minY);
            level.maxX = std::max(level.maxX, b.box.maxX);
            level.maxY = std::max(level.maxY, b.box.maxY);
            haveLevel = true;
        }
    const Box reach{level.minX - levelMargin, level.minY - levelMargin, level.maxX + levelMargin,
                    level.maxY + levelMargin};
    for (const BodyInfo& b : bodies) {
        if (!b.hasBox)
            continue;
        const bool beyond = std::max(std::fabs(b.box.minX), std::fabs(b.box.maxX)) > LevelLoader::maxCoordinate ||
                            std::max(std::fabs(b.box.minY), std::fabs(b.box.maxY)) > LevelLoader::maxCoordinate;
        if (beyond)
            problems.push_back({b.line, b.label + ": lies beyond the coordinates the game can load"});
        else if (haveLevel && b.entity && !b.box.overlaps(reach))
            problems.push_back({b.line, b.label + ": lies outside the level's geometry"});
    }
    std::stable_sort(problems.begin(), problems.end(),
                     [](const Problem& a, const Problem& b) { return a.line < b.line; });
    return problems;
}

int LevelChecker::run(const std::vector<std::string>& files, std::FILE* out, const std::string& baseDir)
{
    int status = 0;
    for (const std::string& file : files) {
        const std::string path = baseDir.empty() || (!file.empty() && file[0] == '/') ? file : baseDir + "/" + file;
        std::ifstream in(path, std::ios::binary);
        std::ostringstream bytes;
        if (in)
            bytes << in.rdbuf();
        if (!in) {
            std::fprintf(out, "%s:0: cannot read the file\n", file.c_str());
            status = 2;
            continue;
        }
        bool readable = true;
        const std::vector<Problem> problems = checkText(bytes.str(), readable);
        for (const Problem& problem : problems)
            std::fprintf(out, "%s:%d: %s\n", file.c_str(), problem.line, problem.message.c_str());
        if (!readable)
            status = 2;
        else if (!problems.empty() && status == 0)
            status = 1;
    }
    return status;
}
