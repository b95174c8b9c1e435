#pragma once
// Builds a running world from a level file: every "P" element becomes a body
// created by type name, filled from its params, vertices and attributes; the
// bodies are then indexed in the quadtree, numbered, put in the game's lists
// and linked to their targets. The same element format is written back for
// saved games. Level files are untrusted: bad bodies are reported and skipped.
#include <list>
#include <memory>
#include <string>
#include <vector>

class Body;
class BodyFactory;
class Game;
class QuadTree;
class TiXmlDocument;
class TiXmlElement;

class LevelLoader {
public:
    // A body with more vertices than this is reported and skipped.
    static constexpr size_t maxVertices = 1024;
    // Coordinates beyond this (either sign) are reported and the body skipped:
    // nothing that far out can be simulated sensibly in floats.
    static constexpr float maxCoordinate = 1.0e6f;
    // Masses above this are read as this much, so gravity stays finite.
    static constexpr float maxMass = 1.0e9f;

    LevelLoader(Game& game, BodyFactory& factory);

    // "maps/" + name with "/" turned into "\", plus ".xml" unless the name
    // already contains ".xml" somewhere.
    static std::string levelPath(const std::string& name);
    // The path as the resource manager wants it on this platform.
    static std::string resourcePath(const std::string& levelPath);

    // One "P" element as a finished body (centroid, local vertices, bounds),
    // or null for a skipped entity or a body that cannot be built.
    std::unique_ptr<Body> loadBody(const TiXmlElement* element, bool skipEntities);
    // Every "P" child of an "Objects" element, in document order. With
    // `readCustom`, a "custom" child is handed to the body's readState.
    void loadObjects(const TiXmlElement* objects, bool skipEntities, bool readCustom,
                     std::vector<std::unique_ptr<Body>>& out);

    // Reads, assembles and reports a level file; false (with the messages)
    // when it cannot be read or parsed.
    bool loadLevelFile(const std::string& name, QuadTree& tree);
    // The same for a level file the caller has already parsed.
    bool loadLevelDocument(const std::string& name, const TiXmlDocument& document, QuadTree& tree);
    // A saved game's world: the level's static bodies plus the saved
    // entities of `savedObjects`, restored with their saved autoids.
    bool loadSavedLevel(const std::string& name, const TiXmlElement* savedObjects, QuadTree& tree);

    // Takes the bodies into the world: quadtree square and insertion, ids,
    // lists, target links and the assembly hooks. `list` is emptied.
    void assemble(std::vector<std::unique_ptr<Body>>& list, QuadTree& tree, bool restoring);

    // The saved game's "Objects" element: one "P" per entity of the world
    // (never the player or a grappling hook).
    static void writeObjects(TiXmlElement* parent, const std::list<Body*>& bodies);
    // One body as a "P" element (params, verts, attributes, custom).
    static void writeBody(TiXmlElement* parent, Body& body);

    // The world's bodies between two rule lines, when load_leveldebug is 1.
    void dumpWorldIfAsked() const;

private:
    bool readLevelDocument(const std::string& path, TiXmlDocument& document) const;
    static void readParams(Body& body, const TiXmlElement* params);
    static bool readVertices(Body& body, const TiXmlElement* element);

    Game& game;
    BodyFactory& factory;
};
