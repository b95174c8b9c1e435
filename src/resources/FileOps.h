#pragma once

#include <memory>
#include <set>
#include <utility>
#include <string>
#include <vector>

// One entry of a directory listing.
class FileSystemNode {
public:
    FileSystemNode(std::string name, bool isDirectory) : isDirectory(isDirectory), name(std::move(name)) {}
    virtual ~FileSystemNode() = default;

    bool isDirectory = false;  // listed entries are always plain files
    std::string name;          // the entry's name, without its directory
};

// Directory listing for the menus that show save games and adventures. The
// pattern is a shell wildcard ("*.xml") matched against the entries' names.
class FileOps {
public:
    // Appends a node for every plain file of `directory` matching `pattern`,
    // in name order. A directory without any "/" gets one appended before the
    // pattern, so ("saves", "*.xml") searches "saves/*.xml". The working
    // directory, the resource manager's search directories and its archives
    // are listed together, each name once. False, with a line on standard
    // output, when none of them has the directory.
    static bool getDirContents(const std::string& directory, const std::string& pattern,
                               std::vector<std::unique_ptr<FileSystemNode>>& list);
    // Adds the names of the plain files in one disk folder that match the
    // wildcard; false when the folder cannot be read.
    static bool listFolder(const std::string& folder, const std::string& namePattern,
                           std::set<std::string>& names);
    // The search text made from a directory and a pattern.
    static std::string searchPattern(const std::string& directory, const std::string& pattern);
};
