#pragma once

#include "resources/ZipFile.h"
#include "resources/ZipResultsBundle.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <vector>

class TiXmlDocument;

// Serves every data file of the game: looked for on disk under the working
// directory first and, when absent there, in the archives (data.zip). Files
// come as byte buffers, as text, or parsed into TinyXML documents. One
// process-wide instance, created before the Game; it opens data.zip at once.
class ResourceManager {
public:
    // The one manager of the process, created on first use.
    static ResourceManager& instance();

    // Opens "data.zip" unless told not to (tests build their own managers).
    explicit ResourceManager(bool openDefaultArchive = true);
    virtual ~ResourceManager() = default;
    ResourceManager(const ResourceManager&) = delete;
    ResourceManager& operator=(const ResourceManager&) = delete;

    // Opens and indexes an archive, searched after those added before it.
    bool addArchive(const std::string& fileName);
    // Forgets every archive (shutdown, and between tests).
    void clearArchives();
    // A directory searched on disk for relative paths after the working
    // directory and before the archives (an installed game's data).
    void addSearchDirectory(const std::string& directory);

    // The whole file followed by ZipFile::zeroPadding zero bytes that `size`
    // does not count.
    // Null with `error` set when the file is neither on disk nor in an archive.
    std::unique_ptr<char[]> getBytes(const std::string& path, std::size_t& size, bool& error);
    // The file's text up to its first zero byte; "" when it cannot be read.
    std::string readText(const std::string& path);
    // Parses the file into `document`; false (with a message) when it cannot
    // be read or does not parse. Callers add their own message on false.
    bool loadDocument(TiXmlDocument& document, const std::string& path);

    // Paths keep "/" on this platform, and archive members use "/" too.
    static std::string toNativePath(const std::string& path) { return path; }

    // Adds the names of plain files in `folder` matching the wildcard
    // `namePattern` from the search directories and the archives (the
    // working directory is the caller's). True when any of them has the folder.
    bool listFiles(const std::string& folder, const std::string& namePattern,
                   std::set<std::string>& names) const;

    // The first member of that exact name over the archives in order.
    std::unique_ptr<ZipResultsBundle> findInArchives(const std::string& path) const;

    const std::vector<std::unique_ptr<ZipFile>>& getArchives() const { return archives; }

    // Documents nested deeper than this are refused rather than handed to
    // TinyXML's recursive parser.
    static constexpr int maxXmlDepth = 1000;

private:
    std::vector<std::unique_ptr<ZipFile>> archives;
    std::vector<std::string> searchDirectories;
};
