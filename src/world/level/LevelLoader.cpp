#include "world/level/LevelLoader.h"

#include <tinyxml.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>

#include "console/ConsolePrint.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "resources/ResourceManager.h"
#include "world/body/Body.h"
#include "world/level/BodyFactory.h"
#include "world/geometry/TextForm.h"
#include "world/level/LevelValues.h"
#include "world/quadtree/QuadTree.h"

namespace {
const RGBAColour loadedColour(120, 255, 120, 255);

bool reasonable(float value) { return std::isfinite(value) && std::fabs(value) <= LevelLoader::maxCoordinate; }

bool present(const TiXmlElement* element, const char* name) { return element->Attribute(name) != nullptr; }

const TiXmlElement* firstChild(const TiXmlElement* parent, const char* name)
{
    return parent ? parent->FirstChildElement(name) : nullptr;
}

// The first `most` numbers of a comma-separated list, a non-finite one read
// as 0 the way readFloat reads it; how many there were.
int readNumberList(const char* text, float* out, int most)
{
    const int count = std::min(readFloatList(text, out, most), most);
    for (int i = 0; i < count; ++i)
        if (!std::isfinite(out[i]))
            out[i] = 0.0f;
    return count;
}

// What RGBAColour::fromString makes of the text, without a string per attribute.
void readColour(const char* text, RGBAColour& colour)
{
    float c[4];
    if (readFloatList(text, c, 4) == 4)
        colour.set(c[0], c[1], c[2], c[3]);
}

// The names readParams knows, in the order writeBody writes them, so a
// search that starts after the last match usually hits at once.
enum Param {
    Targets, Solid, Entity, Outlined, OutlineColour, OutlineWidth, TexHScale, TexHShift, TexVScale,
    TexVShift, TexRotate, Texture, Textured, Visible, ZShift, Mass, ParamCount
};
const char* const paramNames[ParamCount] = {"targets",   "solid",     "entity",    "outlined",
                                            "outlinecolour", "outlinewidth", "texhscale", "texhshift",
                                            "texvscale", "texvshift", "texrotate", "texture",
                                            "textured",  "visible",   "z-shift",   "mass"};
}

LevelLoader::LevelLoader(Game& g, BodyFactory& f) : game(g), factory(f) {}

std::string LevelLoader::levelPath(const std::string& name)
{
    std::string path = "maps/" + name;
    std::replace(path.begin() + 5, path.end(), '/', '\\');
    if (path.find(".xml") == std::string::npos)
        path += ".xml";
    return path;
}

std::string LevelLoader::resourcePath(const std::string& levelPathText)
{
    // Sub-folders are written with "\" in level names' paths; the files live
    // under "/" here.
    std::string path = levelPathText;
    std::replace(path.begin(), path.end(), '\\', '/');
    return ResourceManager::toNativePath(path);
}

void LevelLoader::readParams(Body& body, const TiXmlElement* params)
{
    if (!params)
        return;
    // A missing attribute keeps the field's default; one that is present
    // reads the plain way even when empty (numbers 0, flags false, text "").
    // One walk over the attributes rather than a lookup per name: levels
    // have thousands of bodies. TinyXML refuses duplicate names, so each
    // name has at most one value.
    const char* value[ParamCount] = {};
    int next = 0;
    for (const TiXmlAttribute* a = params->FirstAttribute(); a; a = a->Next())
        for (int k = 0; k < ParamCount; ++k) {
            const int i = (next + k) % ParamCount;
            if (std::strcmp(a->Name(), paramNames[i]) == 0) {
                value[i] = a->Value();
                next = i + 1;
                break;
            }
        }
    // "entity" is the exception: a missing one is false too.
    if (const char* t = value[Targets])
        body.targets = t;
    if (const char* t = value[Solid])
        body.solid = readBool(t);
    body.entity = value[Entity] && readBool(value[Entity]);
    if (const char* t = value[Outlined])
        body.outlined = readBool(t);
    if (const char* t = value[OutlineColour])
        readColour(t, body.outlineColour);
    if (const char* t = value[OutlineWidth])
        body.outlinewidth = std::clamp(readInt(t), 0, 64);
    if (const char* t = value[TexHScale])
        body.texhscale = readFloat(t);
    if (const char* t = value[TexHShift])
        body.texhshift = readFloat(t);
    if (const char* t = value[TexVScale])
        body.texvscale = readFloat(t);
    if (const char* t = value[TexVShift])
        body.texvshift = readFloat(t);
    if (const char* t = value[TexRotate])
        body.texrotate = readFloat(t);
    if (const char* t = value[Texture])
        body.setTexture(t);
    if (const char* t = value[Textured])
        body.textured = readBool(t);
    if (const char* t = value[Visible])
        body.visible = readBool(t);
    if (const char* t = value[ZShift])
        body.zShift = readFloat(t);
    if (const char* t = value[Mass]) {
        const float mass = readFloat(t);
        if (mass <= 0.0000001f) {
            body.mass = 0.0f;
            body.invMass = 0.0f;
        } else {
            body.mass = std::min(mass, maxMass);
            body.invMass = 1.0f / body.mass;
        }
    }
}

bool LevelLoader::readVertices(Body& body, const TiXmlElement* element)
{
    // Positions, colours and texture coordinates stay parallel lists: a
    // vertex without "texcoords" gets 0,0 when others have them.
    std::vector<std::optional<TexCoord>> coords;
    for (const TiXmlElement* verts = firstChild(element, "verts"); verts;
         verts = verts->NextSiblingElement("verts")) {
        for (const TiXmlElement* v = verts->FirstChildElement("v"); v; v = v->NextSiblingElement("v")) {
            if (body.worldVertices.size() >= maxVertices) {
                std::printf("Skipping body %s (%s): more than %zu vertices\n", body.id.c_str(), body.type.c_str(),
                            maxVertices);
                return false;
            }
            Vector origin;
            float parts[3] = {0.0f, 0.0f, 0.0f};
            const int count = readNumberList(v->Attribute("origin"), parts, 3);
            if (count >= 2) {
                origin.x = parts[0];
                origin.y = parts[1];
                if (count >= 3)
                    origin.z = parts[2];
            }
            if (!reasonable(origin.x) || !reasonable(origin.y) || !reasonable(origin.z)) {
                std::printf("Skipping body %s (%s): vertex %s is out of range\n", body.id.c_str(),
                            body.type.c_str(), attributeText(v, "origin").c_str());
                return false;
            }
            body.addVertex(origin.x, origin.y, origin.z);

            RGBAColour colour(255.0f, 255.0f, 255.0f, 255.0f);
            if (const char* text = v->Attribute("colour"))
                readColour(text, colour);
            body.colours.push_back(colour);

            std::optional<TexCoord> coord;
            if (const char* text = v->Attribute("texcoords")) {
                coord.emplace();
                float uv[2];
                if (readFloatList(text, uv, 2) == 2) {
                    coord->u = uv[0];
                    coord->v = uv[1];
                }
            }
            coords.push_back(coord);
        }
    }
    const bool anyCoords = std::any_of(coords.begin(), coords.end(), [](const auto& c) { return c.has_value(); });
    if (anyCoords)
        for (const auto& c : coords)
            body.texCoords.push_back(c ? *c : TexCoord());
    return true;
}

std::unique_ptr<Body> LevelLoader::loadBody(const TiXmlElement* element, bool skipEntities)
{
    if (!element)
        return nullptr;
    std::unique_ptr<Body> body = factory.create(attributeText(element, "type"));
    if (!body)
        return nullptr;
    if (present(element, "idname"))
        body->id = attributeText(element, "idname");

    if (const TiXmlElement* params = firstChild(element, "params")) {
        readParams(*body, params);
        if (skipEntities && body->entity)
            return nullptr;
    }

    if (!readVertices(*body, element))
        return nullptr;
    const std::string problem = Body::polygonProblem(body->worldVertices);
    if (!problem.empty()) {
        std::printf("Skipping body %s (%s): %s\n", body->id.c_str(), body->type.c_str(), problem.c_str());
        return nullptr;
    }

    if (body->normaliseTexCoords && !body->texCoords.empty()) {
        float minU = body->texCoords[0].u, minV = body->texCoords[0].v;
        for (const TexCoord& t : body->texCoords) {
            minU = std::min(minU, t.u);
            minV = std::min(minV, t.v);
        }
        for (TexCoord& t : body->texCoords) {
            t.u -= minU;
            t.v -= minV;
        }
    }

    for (const TiXmlElement* group = firstChild(element, "attributes"); group;
         group = group->NextSiblingElement("attributes"))
        for (const TiXmlElement* a = group->FirstChildElement("a"); a; a = a->NextSiblingElement("a"))
            body->attributes[attributeText(a, "name")] = attributeText(a, "value");
    body->readAttributes(body->attributes);

    Vector centre;
    if (!body->centroid(centre))
        return nullptr;
    body->setPosition(centre);
    body->loaded = true;
    body->makeLocalVertices();
    body->updateBounds();
    return body;
}

void LevelLoader::loadObjects(const TiXmlElement* objects, bool skipEntities, bool readCustom,
                              std::vector<std::unique_ptr<Body>>& out)
{
    for (const TiXmlElement* p = firstChild(objects, "P"); p; p = p->NextSiblingElement("P")) {
        std::unique_ptr<Body> body = loadBody(p, skipEntities);
        if (!body)
            continue;
        if (readCustom)
            if (const TiXmlElement* custom = p->FirstChildElement("custom")) {
                body->readState(const_cast<TiXmlElement*>(custom));
                if (!reasonable(body->pos.x) || !reasonable(body->pos.y) || !reasonable(body->oldpos.x) ||
                    !reasonable(body->oldpos.y)) {
                    std::printf("Skipping body %s (%s): saved position %s is out of range\n", body->id.c_str(),
                                body->type.c_str(), body->pos.toString().c_str());
                    continue;
                }
            }
        out.push_back(std::move(body));
    }
}

bool LevelLoader::readLevelDocument(const std::string& path, TiXmlDocument& document) const
{
    // Rows and columns are for the level checker's reports, not for loading.
    document.SetTabSize(0);
    if (ResourceManager::instance().loadDocument(document, resourcePath(path)) && document.RootElement())
        return true;
    std::printf("Could not load level file: %s\n", path.c_str());
    conPrint("Failed to load: " + path);
    return false;
}

bool LevelLoader::loadLevelFile(const std::string& name, QuadTree& tree)
{
    const std::string path = levelPath(name);
    TiXmlDocument document;
    return readLevelDocument(path, document) && loadLevelDocument(name, document, tree);
}

bool LevelLoader::loadLevelDocument(const std::string& name, const TiXmlDocument& document, QuadTree& tree)
{
    if (!document.RootElement())
        return false;
    std::vector<std::unique_ptr<Body>> loaded;
    loadObjects(firstChild(document.RootElement(), "Objects"), false, false, loaded);
    assemble(loaded, tree, false);
    dumpWorldIfAsked();
    conPrintColoured("Loaded level: " + levelPath(name), loadedColour);
    return true;
}

bool LevelLoader::loadSavedLevel(const std::string& name, const TiXmlElement* savedObjects, QuadTree& tree)
{
    const std::string path = levelPath(name);
    TiXmlDocument document;
    if (!readLevelDocument(path, document))
        return false;

    std::vector<std::unique_ptr<Body>> loaded;
    loadObjects(firstChild(document.RootElement(), "Objects"), true, false, loaded);
    loadObjects(savedObjects, false, true, loaded);
    assemble(loaded, tree, true);
    dumpWorldIfAsked();
    conPrintColoured("Loaded level: " + path, loadedColour);
    return true;
}

void LevelLoader::assemble(std::vector<std::unique_ptr<Body>>& list, QuadTree& tree, bool restoring)
{
    // The square always includes the origin, whatever the level's extent.
    float minX = 0.0f, maxX = 0.0f, minY = 0.0f, maxY = 0.0f;
    for (const auto& body : list)
        for (const Vector& v : body->worldVertices) {
            minX = std::min(minX, v.x);
            maxX = std::max(maxX, v.x);
            minY = std::min(minY, v.y);
            maxY = std::max(maxY, v.y);
        }
    const float width = maxX - minX;
    const float height = maxY - minY;
    const float size = std::max(width, height);
    tree.build(Vector(minX + width / 2.0f, minY + height / 2.0f), size + 16.0f, 2);

    std::vector<Body*> world;
    world.reserve(list.size());
    for (auto& owned : list) {
        Body* body = owned.release();
        world.push_back(body);
        body->transform();
        game.addBody(body, body->entity && !restoring);
        if (body->entity || body->mass >= Body::minMass)
            game.addActiveBody(body);
        if (!tree.insert(body))
            std::printf("insertion failed at %s\n", body->pos.toString().c_str());
    }
    list.clear();

    // Ids may be shared: every body with a listed id becomes a target.
    std::multimap<std::string, Body*> byId;
    for (Body* body : world)
        byId.emplace(body->id, body);
    for (Body* body : world) {
        body->beforeTargets();
        if (!body->targets.empty())
            for (const std::string& piece : splitTokens(body->targets, ",")) {
                auto [first, last] = byId.equal_range(piece);
                for (auto it = first; it != last; ++it)
                    body->addTarget(it->second);
            }
        body->afterTargets();
        if (restoring)
            body->restored();
        else
            body->levelStart();
        body->afterAssembly();
    }
}

void LevelLoader::dumpWorldIfAsked() const
{
    const GameVar* debug = findVar("load_leveldebug");
    if (!debug || debug->intValue != 1)
        return;
    std::printf("=====================\n");
    for (Body* body : game.getBodies())
        std::printf("%s\n", body->debugString().c_str());
    std::printf("=====================\n");
}

void LevelLoader::writeBody(TiXmlElement* parent, Body& body)
{
    auto* p = new TiXmlElement("P");
    parent->LinkEndChild(p);
    p->SetAttribute("idname", body.id);
    p->SetAttribute("type", body.type);

    auto* params = new TiXmlElement("params");
    p->LinkEndChild(params);
    params->SetAttribute("targets", body.targets);
    params->SetAttribute("solid", writeBool(body.solid));
    params->SetAttribute("entity", writeBool(body.entity));
    params->SetAttribute("outlined", writeBool(body.outlined));
    params->SetAttribute("outlinecolour", body.outlineColour.toString());
    params->SetAttribute("outlinewidth", writeInt(body.outlinewidth));
    params->SetAttribute("texhscale", writeFloat(body.texhscale));
    params->SetAttribute("texhshift", writeFloat(body.texhshift));
    params->SetAttribute("texvscale", writeFloat(body.texvscale));
    params->SetAttribute("texvshift", writeFloat(body.texvshift));
    params->SetAttribute("texrotate", writeFloat(body.texrotate));
    params->SetAttribute("texture", body.texture);
    params->SetAttribute("textured", writeBool(body.textured));
    params->SetAttribute("visible", writeBool(body.visible));
    params->SetAttribute("z-shift", writeFloat(body.zShift));
    params->SetAttribute("mass", writeFloat(body.mass));

    auto* verts = new TiXmlElement("verts");
    p->LinkEndChild(verts);
    for (size_t i = 0; i < body.worldVertices.size(); ++i) {
        auto* v = new TiXmlElement("v");
        verts->LinkEndChild(v);
        Vector origin = body.worldVertices[i];
        v->SetAttribute("origin", origin.toString());
        const RGBAColour colour = i < body.colours.size() ? body.colours[i] : RGBAColour(255, 255, 255, 255);
        v->SetAttribute("colour", colour.toString());
        if (i < body.texCoords.size())
            v->SetAttribute("texcoords", body.texCoords[i].toString());
    }

    auto* attributes = new TiXmlElement("attributes");
    p->LinkEndChild(attributes);
    for (const auto& [name, value] : body.attributes) {
        auto* a = new TiXmlElement("a");
        attributes->LinkEndChild(a);
        a->SetAttribute("name", name);
        a->SetAttribute("value", value);
    }

    auto* custom = new TiXmlElement("custom");
    p->LinkEndChild(custom);
    body.writeState(custom);
}

void LevelLoader::writeObjects(TiXmlElement* parent, const std::list<Body*>& bodies)
{
    if (!parent)
        return;
    auto* objects = new TiXmlElement("Objects");
    parent->LinkEndChild(objects);
    for (Body* body : bodies)
        if (body && body->entity && body->type != "player" && body->type != "grappleprojectile")
            writeBody(objects, *body);
}
