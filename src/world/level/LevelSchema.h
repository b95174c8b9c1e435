#pragma once
// What a level file may say about each body type: the free attributes the
// type reads, with their kind, default and a line of help. The names come
// from the bodies' own readAttributes code (probed through sameName), so the
// level checker and the Tiled project cannot drift from what the game reads;
// kinds, defaults and help live in one table beside them.
#include <string>
#include <vector>

class BodyFactory;

class LevelSchema {
public:
    enum class Kind {
        Text,
        Bool,
        Int,
        Float,
        Vector,       // "x,y" or "x,y,z"
        BodyType,     // a type name of the factory
        BodyId,       // the idname of a body in the same level
        BodyIdList,   // comma-separated idnames
        Texture,      // image file
        Sound,        // sound definition path or a sound file
        Particle,     // particle effect id
        Sky,          // sky name (data/sky/<name>.xml)
        SkyList,      // comma-separated sky names
        Level,        // level name under maps/, without ".xml"
        File,         // a data file
        Music,        // music track name (data/music/<name>.ogg)
    };

    struct Attribute {
        std::string name;
        Kind kind = Kind::Text;
        std::string defaultValue;
        std::string help;
    };

    // Probes every type of `factory` (and its fallback) once.
    explicit LevelSchema(BodyFactory& factory);

    // Type names in registration order ("default" first when registered).
    const std::vector<std::string>& typeNames() const { return types; }
    bool knowsType(const std::string& type) const;
    // The attributes the type reads; a type the factory does not know reads
    // those of a plain body.
    const std::vector<Attribute>& attributesOf(const std::string& type) const;
    // The attribute of that type matching `name` without regard to case.
    const Attribute* findAttribute(const std::string& type, const std::string& name) const;
    // Names read by some type that the help table does not describe (empty
    // when the table is complete).
    const std::vector<std::string>& undocumentedNames() const { return undocumented; }

    static const char* kindName(Kind kind);
    // Whether `text` is a valid value of a scalar kind (bool, int, float,
    // vector); other kinds take any text.
    static bool valueFits(Kind kind, const std::string& text);
    // The candidate closest to `name` by edit distance when it is close
    // enough to be a likely typo, else "".
    static std::string nearest(const std::string& name, const std::vector<std::string>& candidates);

private:
    struct TypeEntry {
        std::string type;
        std::vector<Attribute> attributes;
    };
    const TypeEntry* entryOf(const std::string& type) const;

    std::vector<std::string> types;
    std::vector<TypeEntry> entries;
    TypeEntry plainBody;
    std::vector<std::string> undocumented;
};
