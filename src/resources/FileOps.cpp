#include "resources/FileOps.h"

#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>

std::string FileOps::searchPattern(const std::string& directory, const std::string& pattern) {
    std::string search = directory;
    if (search.find('/') == std::string::npos) {
        search += '/';
    }
    return search + pattern;
}

bool FileOps::getDirContents(const std::string& directory, const std::string& pattern,
                             std::vector<std::unique_ptr<FileSystemNode>>& list) {
    // Like the wildcard search it stands for, the last "/" separates the
    // folder from the name pattern.
    const std::string search = searchPattern(directory, pattern);
    const std::size_t slash = search.rfind('/');
    const std::string folder = slash == 0 ? "/" : search.substr(0, slash);
    const std::string namePattern = search.substr(slash + 1);

    DIR* dir = opendir(folder.c_str());
    if (!dir) {
        std::printf("getDirContents error\n");
        return false;
    }
    std::vector<std::string> names;
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
        names.push_back(name);
    }
    closedir(dir);

    std::sort(names.begin(), names.end());
    for (const std::string& name : names) {
        list.push_back(std::make_unique<FileSystemNode>(name, false));
    }
    return true;
}
