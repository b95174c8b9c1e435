#include "world/level/LevelSchema.h"

#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>
#include <memory>

#include "world/body/Body.h"
#include "world/geometry/TextForm.h"
#include "world/level/BodyFactory.h"
#include "world/level/LevelValues.h"

namespace {
using Kind = LevelSchema::Kind;

struct Doc {
    const char* name;
    // Comma-separated types this line is for; "" for every type. Lines for
    // particular types come before the general line of the same name.
    const char* types;
    Kind kind;
    const char* defaultValue;
    const char* help;
};

// Kinds, defaults and help of every attribute a body type reads. A default
// of "" means the type decides.
const Doc docs[] = {
    {"glow", "", Kind::Bool, "false", "Draw a soft glow around the body"},
    {"glowsteps", "", Kind::Int, "", "How many glow rings to draw"},
    {"health", "", Kind::Int, "", "Starting and largest health"},
    {"lives", "", Kind::Int, "1", "Deaths before the body is gone for good"},
    {"level", "", Kind::Int, "1", "Difficulty level of the enemy, 1 to 5"},
    {"cashchance", "", Kind::Int, "", "Chance in percent that the enemy drops cash"},
    {"cashmin", "", Kind::Int, "", "Least cash dropped"},
    {"cashmax", "", Kind::Int, "", "Most cash dropped"},
    {"speed", "jumppad,triggeredjumppad", Kind::Vector, "", "Velocity given to what touches the pad, x,y"},
    {"speed", "searchlight", Kind::Float, "", "Turning speed of the beam in degrees per second"},
    {"speed", "", Kind::Float, "", "Speed while opening and closing, units per second"},
    {"additive", "", Kind::Bool, "false", "Add the pad's velocity instead of replacing it"},
    {"starton", "", Kind::Bool, "false", "The pad works before it is first triggered"},
    {"untriggertimer", "", Kind::Float, "0", "Milliseconds before it can be triggered again"},
    {"triggeronce", "", Kind::Bool, "false", "Fire only once per level"},
    {"untriggeredimage", "", Kind::Texture, "", "Texture shown while the switch is off"},
    {"triggeredimage", "", Kind::Texture, "", "Texture shown while the switch is on"},
    {"message", "", Kind::Text, "", "Text shown on the HUD"},
    {"text", "", Kind::Text, "", "Text drawn in the level"},
    {"font", "", Kind::Text, "", "Font of the text"},
    {"size", "", Kind::Int, "", "Font size of the text"},
    {"shadow", "", Kind::Bool, "false", "Draw the text with a shadow"},
    {"sound", "", Kind::Sound, "", "Sound played near the player (a sound file)"},
    {"volume", "", Kind::Int, "", "Volume of the sound, 0 to 128"},
    {"loops", "", Kind::Int, "0", "Extra repeats of the sound; -1 repeats for ever"},
    {"leveltarget", "", Kind::Level, "", "Level loaded when the player touches it (no .xml)"},
    {"targetspawn", "", Kind::Text, "", "Spawn point of the next level to start at"},
    {"iscutscene", "", Kind::Bool, "false", "Show a cut scene instead of changing level"},
    {"cutscene", "", Kind::Text, "", "Cut scene shown when iscutscene is true"},
    {"startpoint", "", Kind::Bool, "false", "The player starts here when the level begins"},
    {"spawnedtype", "", Kind::BodyType, "", "Type of body the spawner makes"},
    {"spawntype", "", Kind::BodyType, "", "Type of enemy this one spawns"},
    {"spawnlevel", "", Kind::Int, "1", "Difficulty level given to spawned enemies"},
    {"maxalive", "", Kind::Int, "", "Most spawned bodies alive at once"},
    {"maxspawned", "", Kind::Int, "0", "Most bodies spawned in all; 0 spawns only when triggered"},
    {"spawndelay", "", Kind::Float, "", "Milliseconds between spawns"},
    {"wavefile", "", Kind::File, "", "File of timed events the wave controller fires"},
    {"skies", "", Kind::SkyList, "", "Skies this level uses, comma-separated"},
    {"initialsky", "", Kind::Sky, "", "Sky shown when the level starts"},
    {"music", "", Kind::Music, "", "Music track played in the level; none plays silence"},
    {"sky", "", Kind::Sky, "", "Sky faded to when the player touches it"},
    {"on", "", Kind::Bool, "", "Starts switched on"},
    {"reverttimer", "", Kind::Float, "0", "Milliseconds before a triggered change reverts; 0 never"},
    {"systemid", "", Kind::Particle, "", "Particle effect shown"},
    {"changevelocity", "", Kind::Bool, "false", "Give the traveller exitvelocity on arrival"},
    {"exitvelocity", "", Kind::Vector, "0,0", "Velocity on arrival, x,y"},
    {"timeopen", "", Kind::Float, "", "Milliseconds it stays open; 0 stays open"},
    {"openoffset", "", Kind::Vector, "", "How far it moves when it opens, x,y"},
    {"startopen", "", Kind::Bool, "false", "Starts open"},
    {"force", "", Kind::Float, "", "Pull towards the attractor; negative pushes away"},
    {"radius", "", Kind::Float, "", "Reach of the attractor in units"},
    {"pain", "", Kind::Int, "", "Damage dealt on touch"},
    {"fatal", "", Kind::Bool, "false", "Kills whatever touches it"},
    {"timeon", "", Kind::Float, "", "Milliseconds the grid stays on"},
    {"timeoff", "", Kind::Float, "", "Milliseconds the grid stays off"},
    {"blocktype", "", Kind::Int, "0", "Boss block look, 0 to 2"},
    {"adds1", "", Kind::BodyId, "", "Id of the spawner called at the boss's first stage"},
    {"adds2", "", Kind::BodyId, "", "Id of the spawner called at the boss's second stage"},
    {"arenaleft", "", Kind::Float, "", "Left end (x) of the boss's arena; 800 either side of it when unset"},
    {"arenaright", "", Kind::Float, "", "Right end (x) of the boss's arena"},
    {"startangle", "", Kind::Int, "", "Beam angle at the start of its sweep, degrees"},
    {"endangle", "", Kind::Int, "", "Beam angle at the end of its sweep, degrees"},
    {"minangle", "", Kind::Int, "", "Smallest beam angle, degrees"},
    {"conewidth", "", Kind::Float, "", "Width of the beam's cone"},
    {"conelength", "", Kind::Float, "", "Length of the beam's cone"},
    {"timepaused", "", Kind::Float, "", "Milliseconds the beam pauses at each end"},
    {"respawndelay", "", Kind::Float, "", "Milliseconds before a taken pickup comes back"},
    {"amount", "", Kind::Int, "", "How much the pickup gives"},
    {"ammo", "", Kind::Int, "", "Ammunition the pickup gives"},
    {"weapontype", "", Kind::Text, "", "Weapon given, when not the type's own"},
    {"ammotype", "", Kind::Text, "", "Weapon whose ammunition this is, when not the type's own"},
    {"endbody", "", Kind::BodyId, "", "Id of the race's finish"},
    {"startbody", "", Kind::BodyId, "", "Id of the race's start"},
    {"targettime", "", Kind::Float, "", "Time to beat in milliseconds"},
    {"blocks", "", Kind::BodyIdList, "", "Ids of the race blocks to deliver, comma-separated"},
};

bool forType(const Doc& doc, const std::string& type)
{
    if (!*doc.types)
        return true;
    for (const std::string& t : splitTokens(doc.types, ","))
        if (t == type)
            return true;
    return false;
}

const Doc* docFor(const std::string& type, const std::string& name)
{
    for (const Doc& doc : docs)
        if (sameName(doc.name, name) && forType(doc, type))
            return &doc;
    return nullptr;
}

// Collects the names readAttributes compares against, in first-seen order.
class Recorder : public AttributeNameProbe {
public:
    void compared(const std::string& knownName) override
    {
        for (const std::string& n : names)
            if (n == knownName)
                return;
        names.push_back(knownName);
    }
    std::vector<std::string> names;
};

std::vector<std::string> probeNames(Body& body)
{
    // A name no attribute matches, so every comparison runs and nothing is set.
    const std::map<std::string, std::string> probe{{"\x01", ""}};
    Recorder recorder;
    AttributeNameProbe* previous = setAttributeNameProbe(&recorder);
    body.readAttributes(probe);
    setAttributeNameProbe(previous);
    return recorder.names;
}

size_t editDistance(const std::string& a, const std::string& b)
{
    std::vector<size_t> row(b.size() + 1);
    for (size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i;
        for (size_t j = 1; j <= b.size(); ++j) {
            const size_t up = row[j];
            const bool same = std::tolower(static_cast<unsigned char>(a[i - 1])) ==
                              std::tolower(static_cast<unsigned char>(b[j - 1]));
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (same ? 0 : 1)});
            diagonal = up;
        }
    }
    return row[b.size()];
}

bool isNumber(const std::string& text, bool integer)
{
    if (text.empty())
        return false;
    char* end = nullptr;
    if (integer)
        std::strtol(text.c_str(), &end, 10);
    else
        std::strtod(text.c_str(), &end);
    return end && *end == '\0' && !std::isspace(static_cast<unsigned char>(text[0]));
}

// A fresh body's saved state: where a saved key is named like an attribute
// and reads as its kind, it is that attribute's default, straight from code.
std::string savedDefault(const TiXmlElement& state, const std::string& name, Kind kind)
{
    for (const TiXmlAttribute* a = state.FirstAttribute(); a; a = a->Next()) {
        if (!sameName(a->Name(), name))
            continue;
        std::string value = a->Value();
        if (kind == Kind::Float && value.find('.') != std::string::npos) {
            // "%f" text: drop the zeros a reader would not write.
            value.erase(value.find_last_not_of('0') + 1);
            if (!value.empty() && value.back() == '.')
                value.pop_back();
        }
        const bool scalar = kind == Kind::Bool || kind == Kind::Int || kind == Kind::Float;
        return scalar && LevelSchema::valueFits(kind, value) ? value : std::string();
    }
    return std::string();
}
}

LevelSchema::LevelSchema(BodyFactory& factory)
{
    auto describe = [this](const std::string& type, Body& body) {
        TypeEntry entry;
        entry.type = type;
        TiXmlElement state("custom");
        body.writeState(&state);
        for (const std::string& name : probeNames(body)) {
            Attribute attribute;
            attribute.name = name;
            if (const Doc* doc = docFor(type, name)) {
                attribute.kind = doc->kind;
                attribute.defaultValue = doc->defaultValue;
                attribute.help = doc->help;
            } else if (std::find(undocumented.begin(), undocumented.end(), name) == undocumented.end()) {
                undocumented.push_back(name);
            }
            const std::string fromCode = savedDefault(state, name, attribute.kind);
            if (!fromCode.empty())
                attribute.defaultValue = fromCode;
            entry.attributes.push_back(attribute);
        }
        return entry;
    };
    for (BodyFactory* f = &factory; f; f = f->getFallbackFactory()) {
        for (const auto& prototype : f->getPrototypes()) {
            if (knowsType(prototype->type))
                continue;
            types.push_back(prototype->type);
            std::unique_ptr<Body> fresh = f->create(prototype->type);
            entries.push_back(describe(prototype->type, fresh ? *fresh : *prototype));
        }
        if (f->getFallbackFactory() == &factory)
            break;
    }
    Body plain;
    plainBody = describe("", plain);
}

bool LevelSchema::knowsType(const std::string& type) const
{
    return std::find(types.begin(), types.end(), type) != types.end();
}

const LevelSchema::TypeEntry* LevelSchema::entryOf(const std::string& type) const
{
    for (const TypeEntry& entry : entries)
        if (entry.type == type)
            return &entry;
    return &plainBody;
}

const std::vector<LevelSchema::Attribute>& LevelSchema::attributesOf(const std::string& type) const
{
    return entryOf(type)->attributes;
}

const LevelSchema::Attribute* LevelSchema::findAttribute(const std::string& type, const std::string& name) const
{
    for (const Attribute& attribute : attributesOf(type))
        if (sameName(attribute.name, name))
            return &attribute;
    return nullptr;
}

const char* LevelSchema::kindName(Kind kind)
{
    switch (kind) {
    case Kind::Bool: return "bool";
    case Kind::Int: return "int";
    case Kind::Float: return "float";
    case Kind::Vector: return "vector";
    case Kind::BodyType: return "body type";
    case Kind::BodyId: return "body id";
    case Kind::BodyIdList: return "body ids";
    case Kind::Texture: return "texture";
    case Kind::Sound: return "sound";
    case Kind::Particle: return "particle effect";
    case Kind::Sky: return "sky";
    case Kind::SkyList: return "skies";
    case Kind::Level: return "level";
    case Kind::File: return "file";
    case Kind::Music: return "music track";
    case Kind::Text: break;
    }
    return "text";
}

bool LevelSchema::valueFits(Kind kind, const std::string& text)
{
    switch (kind) {
    case Kind::Bool: return text == "true" || text == "false";
    case Kind::Int: return isNumber(text, true);
    case Kind::Float: return isNumber(text, false);
    case Kind::Vector: {
        const std::vector<std::string> parts = splitTokens(text, ",");
        if (parts.size() < 2 || parts.size() > 3)
            return false;
        return std::all_of(parts.begin(), parts.end(), [](const std::string& p) { return isNumber(p, false); });
    }
    default: return true;
    }
}

std::string LevelSchema::nearest(const std::string& name, const std::vector<std::string>& candidates)
{
    std::string best;
    size_t bestDistance = 0;
    for (const std::string& candidate : candidates) {
        const size_t d = editDistance(name, candidate);
        if (best.empty() || d < bestDistance) {
            best = candidate;
            bestDistance = d;
        }
    }
    // A third of the name may be wrong, and at least two letters.
    const size_t allowed = std::max<size_t>(2, name.size() / 3);
    return !best.empty() && bestDistance <= allowed ? best : std::string();
}
