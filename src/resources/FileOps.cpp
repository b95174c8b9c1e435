#include "resources/FileOps.h"

#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <cstdio>

#include "resources/ResourceManager.h"

std::string FileOps::searchPattern(const std::string& directory, const std::string& pattern) {
    std::string search = directory;
    if (search.find('/') == std::string::npos) {
        search += '/';
    }
    return search + pattern;
}

bool FileOps::listFolder(const std::string& folder, const std::string& namePattern,
                         std::set<std::string>& names) {
    DIR* dir = opendir(folder.c_str());
    if (!dir) {
        return false;
    }
    while (const dirent* entry = readdir(dir)) {
        const std::string name = entry->d_name;
        if (fnmatch(namePattern.c_str(), name.c_str(), 0) != 0) {
            continue;
        }
        struct stat info {};
        const std::string full = folder + "/" + name;
        if (stat(full.c_str(), &info) != 0 || S_ISDIR(info.st_mode)) {
            continue;
        }
        names.insert(name);
    }
    closedir(dir);
    return true;
}

bool FileOps::getDirContents(const std::string& directory, const std::string& pattern,
                             std::vector<std::unique_ptr<FileSystemNode>>& list) {
    // Like the wildcard search it stands for, the last "/" separates the
    // folder from the name pattern.
    const std::string search = searchPattern(directory, pattern);
    const std::size_t slash = search.rfind('/');
    const std::string folder = slash == 0 ? "/" : search.substr(0, slash);
    const std::string namePattern = search.substr(slash + 1);

    std::set<std::string> names;
    bool found = listFolder(folder, namePattern, names);
    // An installed game's levels and adventures, or those in data.zip.
    found = ResourceManager::instance().listFiles(folder, namePattern, names) || found;
    if (!found) {
        std::printf("getDirContents error\n");
        return false;
    }
    for (const std::string& name : names) {
        list.push_back(std::make_unique<FileSystemNode>(name, false));
    }
    return true;
}
