#pragma once
// Writes the files that make Tiled a level editor for this game: a project
// with every body type as a class (its attributes and their defaults), the
// same as an object types file for Tiled versions that read that instead,
// and a reference of every attribute with a line of help. All of it comes
// from the level schema, so it always matches what the game reads.
#include <string>

class LevelSchema;

class TiledProject {
public:
    // Writes brindlequay.tiled-project, objecttypes.xml and bodytypes.md into
    // `dir` (created when missing). `extensionsDir` is where the game's Tiled
    // extension lives; `mapsDir` is listed as the project's folder.
    static bool write(const LevelSchema& schema, const std::string& dir, const std::string& extensionsDir,
                      const std::string& mapsDir, std::string& error);

    // The texts of the three files.
    static std::string projectJson(const LevelSchema& schema, const std::string& extensionsDir,
                                   const std::string& mapsDir);
    static std::string objectTypesXml(const LevelSchema& schema);
    static std::string referenceMarkdown(const LevelSchema& schema);
};
