#include "resources/ResourceManager.h"

#include "resources/FileOps.h"

#include <tinyxml.h>

#include <fnmatch.h>
#include <sys/stat.h>

#include <cstdio>
#include <cstring>

ResourceManager& ResourceManager::instance() {
    static ResourceManager manager;
    return manager;
}

ResourceManager::ResourceManager(bool openDefaultArchive) {
    // Without data.zip the data is on disk: that is no failure to report.
    struct stat info {};
    if (openDefaultArchive && ::stat("data.zip", &info) == 0) {
        addArchive("data.zip");
    }
}

bool ResourceManager::addArchive(const std::string& fileName) {
    auto archive = std::make_unique<ZipFile>(fileName);
    if (!archive->open()) {
        std::printf("Failed to load %s\n", fileName.c_str());
        return false;
    }
    std::printf("Opened %s: %zu files\n", fileName.c_str(), archive->getEntries().size());
    archives.push_back(std::move(archive));
    return true;
}

void ResourceManager::clearArchives() {
    archives.clear();
}

void ResourceManager::addSearchDirectory(const std::string& directory) {
    searchDirectories.push_back(directory);
}

std::unique_ptr<ZipResultsBundle> ResourceManager::findInArchives(const std::string& path) const {
    for (const auto& archive : archives) {
        if (const ZipEntry* entry = archive->findEntry(path)) {
            return std::make_unique<ZipResultsBundle>(archive.get(), entry);
        }
    }
    return nullptr;
}

bool ResourceManager::listFiles(const std::string& folder, const std::string& namePattern,
                                std::set<std::string>& names) const {
    bool found = false;
    if (!folder.empty() && folder[0] != '/') {
        for (const std::string& directory : searchDirectories) {
            found = FileOps::listFolder(directory + "/" + folder, namePattern, names) || found;
        }
    }
    const std::string prefix = folder + "/";
    for (const auto& archive : archives) {
        for (const auto& entry : archive->getEntries()) {
            const std::string& name = entry->name;
            if (name.compare(0, prefix.size(), prefix) != 0) {
                continue;
            }
            found = true;
            const std::string rest = name.substr(prefix.size());
            if (!rest.empty() && rest.find('/') == std::string::npos &&
                fnmatch(namePattern.c_str(), rest.c_str(), 0) == 0) {
                names.insert(rest);
            }
        }
    }
    return found;
}

// Reads a regular file whole. Directories, devices and pipes are not data
// files: opening them could block or report absurd lengths.
static std::unique_ptr<char[]> readDiskFile(const std::string& path, std::size_t& size) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return nullptr;
    }
    std::FILE* file = std::fopen(path.c_str(), "r");
    if (!file) {
        return nullptr;
    }
    long length = -1;
    if (std::fseek(file, 0, SEEK_END) == 0) {
        length = std::ftell(file);
    }
    if (length < 0 || std::fseek(file, 0, SEEK_SET) != 0) {
        std::fclose(file);
        return nullptr;
    }
    if (static_cast<unsigned long>(length) > ZipFile::maxMemberSize) {
        std::printf("%s is too large to load\n", path.c_str());
        std::fclose(file);
        return nullptr;
    }
    const std::size_t capacity = static_cast<std::size_t>(length);
    std::unique_ptr<char[]> bytes(new char[capacity + ZipFile::zeroPadding]());
    // A file that shrank since we measured it gives what is left.
    size = capacity > 0 ? std::fread(bytes.get(), 1, capacity, file) : 0;
    bytes[size] = '\0';
    std::fclose(file);
    return bytes;
}

std::unique_ptr<char[]> ResourceManager::getBytes(const std::string& path, std::size_t& size,
                                                  bool& error) {
    size = 0;
    error = false;
    if (std::unique_ptr<char[]> bytes = readDiskFile(path, size)) {
        std::printf("Found on disk: %s\n", path.c_str());
        return bytes;
    }
    if (!path.empty() && path[0] != '/') {
        for (const std::string& directory : searchDirectories) {
            const std::string full = directory + "/" + path;
            if (std::unique_ptr<char[]> bytes = readDiskFile(full, size)) {
                std::printf("Found on disk: %s\n", full.c_str());
                return bytes;
            }
        }
    }
    std::printf("NOT Found on disk: %s\n", path.c_str());

    std::unique_ptr<ZipResultsBundle> found = findInArchives(path);
    if (!found || !found->zipFile || !found->entry) {
        std::printf("Not in any archive: %s\n", path.c_str());
        error = true;
        return nullptr;
    }
    return found->zipFile->getBytes(*found->entry, size, error);
}

std::string ResourceManager::readText(const std::string& path) {
    std::size_t size = 0;
    bool error = false;
    std::unique_ptr<char[]> bytes = getBytes(path, size, error);
    if (error || !bytes || size == 0) {
        return std::string();
    }
    return std::string(bytes.get());  // up to the first zero byte
}

// How deeply elements nest, counted roughly from the tags. Comments and
// character data may make it overcount a little, never undercount. memchr
// hops from mark to mark: every file loaded passes through here, and a
// byte-at-a-time loop was most of the cost of loading under the fuzzers.
static int nestingDepth(const char* text, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    // Each mark is judged by the character after it.
    const char* const end = text + size - 1;
    const auto find = [end](const char* from, char mark) {
        return from < end ? static_cast<const char*>(std::memchr(from, mark, end - from)) : nullptr;
    };
    int depth = 0;
    int deepest = 0;
    const char* open = find(text, '<');
    const char* slash = find(text, '/');
    while (open || slash) {
        if (open && (!slash || open < slash)) {
            const char next = open[1];
            if (next == '/') {
                --depth;
            } else if (next != '?' && next != '!') {
                ++depth;
                if (depth > deepest) {
                    deepest = depth;
                }
            }
            open = find(open + 1, '<');
        } else {
            if (slash[1] == '>') {
                --depth;
            }
            slash = find(slash + 1, '/');
        }
    }
    return deepest;
}

bool ResourceManager::loadDocument(TiXmlDocument& document, const std::string& path) {
    std::size_t size = 0;
    bool error = false;
    std::unique_ptr<char[]> bytes = getBytes(path, size, error);
    if (error || !bytes || size == 0) {
        std::printf("Error reading bytes for: %s\n", path.c_str());
        std::printf("Reason: %s%s%s\n", error ? " Error" : "", bytes ? "" : " NULL filedata",
                    size == 0 ? " numBytes==0" : "");
        return false;
    }
    const std::string name = document.ValueStr().empty() ? path : document.ValueStr();
    if (nestingDepth(bytes.get(), size) > maxXmlDepth) {
        std::printf("Failed to parse: %s Error: elements nested too deeply\n", name.c_str());
        return false;
    }
    document.Parse(bytes.get(), nullptr, TIXML_DEFAULT_ENCODING);
    if (document.Error()) {
        std::printf("Failed to parse: %s Error: %s\n", name.c_str(), document.ErrorDesc());
        return false;
    }
    return true;
}
