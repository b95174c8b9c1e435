#pragma once
// Reads level files the way the game does and lists what is wrong with them
// before anyone plays: unknown types and attributes, values of the wrong
// kind, targets and media that name nothing, bad polygons, spawn points and
// exits, bodies outside the level. Needs no window, sound or running world;
// media are looked up through the resource manager (disk, then data.zip).
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "world/level/LevelSchema.h"

class TiXmlElement;

class LevelChecker {
public:
    struct Problem {
        int line = 0;
        std::string message;
    };

    explicit LevelChecker(const LevelSchema& schema);

    // The problems of one level file's text; `readable` is false when the
    // text is not a level at all (no XML, no root element).
    std::vector<Problem> checkText(const std::string& text, bool& readable);

    // Checks each file and prints "FILE:LINE: message" lines to `out`;
    // relative names are opened under `baseDir` when it is given.
    // Exit status: 0 clean, 1 problems found, 2 a file could not be read.
    int run(const std::vector<std::string>& files, std::FILE* out, const std::string& baseDir = "");

private:
    struct BodyInfo;
    void checkBody(const TiXmlElement* p, BodyInfo& info, std::vector<Problem>& problems);
    void checkAttribute(const BodyInfo& info, const TiXmlElement* a, const std::string& name,
                        const std::string& value, std::vector<Problem>& problems);
    bool resourceExists(const std::string& path);
    bool soundExists(const std::string& name);
    bool particleExists(const std::string& id);
    bool spawnPointIn(const std::string& levelPath, const std::string& id);

    const LevelSchema& schema;
    std::set<std::string> ids;
    std::set<std::string> foundResources, missingResources;
    std::set<std::string> soundPaths, particleIds;
    std::map<std::string, std::set<std::string>> levelSpawns;
    bool mediaTablesRead = false;
};
