#include "resources/GameDirectories.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "resources/ResourceManager.h"

#ifndef BQ_INSTALLED_DATA_SUFFIX
#define BQ_INSTALLED_DATA_SUFFIX "../share/brindlequay"
#endif

namespace {
bool isFile(const std::string& path)
{
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool isDirectory(const std::string& path)
{
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// The path without "..", "." or links, for the log; unchanged when it does not exist.
std::string canonical(const std::string& path)
{
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

std::string currentDirectory()
{
    char* cwd = getcwd(nullptr, 0);
    std::string dir = cwd ? cwd : ".";
    std::free(cwd);
    return dir;
}

std::string executableDirectory()
{
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
    if (length <= 0)
        return std::string();
    const std::string exe(path, static_cast<std::size_t>(length));
    const std::size_t slash = exe.rfind('/');
    return slash == std::string::npos ? std::string() : exe.substr(0, slash == 0 ? 1 : slash);
}
}

const char* GameDirectories::installedDataSuffix() { return BQ_INSTALLED_DATA_SUFFIX; }

std::string GameDirectories::userDirectory(const char* xdgDataHome, const char* home)
{
    if (xdgDataHome && xdgDataHome[0] == '/')
        return std::string(xdgDataHome) + "/brindlequay";
    if (home && home[0] != '\0')
        return std::string(home) + "/.local/share/brindlequay";
    return std::string();
}

bool GameDirectories::holdsGameData(const std::string& dir)
{
    return !dir.empty() && (isFile(dir + "/data/gamevars.xml") || isFile(dir + "/data.zip"));
}

bool GameDirectories::makeDirectories(const std::string& dir)
{
    if (dir.empty())
        return false;
    for (std::size_t slash = dir.find('/', 1); slash != std::string::npos; slash = dir.find('/', slash + 1))
        ::mkdir(dir.substr(0, slash).c_str(), 0755);
    ::mkdir(dir.c_str(), 0755);
    return isDirectory(dir);
}

bool GameDirectories::canWrite(const std::string& dir) { return access(dir.c_str(), W_OK) == 0; }

GameDirectories GameDirectories::resolve(const std::string& executableDir, const std::string& workingDir,
                                         const char* xdgDataHome, const char* home,
                                         bool (*writable)(const std::string&))
{
    const std::string user = userDirectory(xdgDataHome, home);
    // A game directory keeps the player's files beside the data while it can.
    auto writeDirFor = [&user, writable](const std::string& dir) {
        return user.empty() || writable(dir) ? dir : user;
    };
    GameDirectories dirs;
    const std::string installed = executableDir + "/" + installedDataSuffix();
    if (holdsGameData(executableDir)) {
        dirs.dataDir = executableDir;
        dirs.writeDir = writeDirFor(executableDir);
    } else if (!executableDir.empty() && holdsGameData(installed)) {
        // An installed game shares its data with every user: never write there.
        dirs.dataDir = canonical(installed);
        dirs.writeDir = user.empty() ? workingDir : user;
    } else {
        // Nothing beside the binary: the working directory is the game directory.
        dirs.dataDir = workingDir;
        dirs.writeDir = writeDirFor(workingDir);
    }
    return dirs;
}

GameDirectories GameDirectories::forThisProcess()
{
    return resolve(executableDirectory(), currentDirectory(), std::getenv("XDG_DATA_HOME"),
                   std::getenv("HOME"));
}

bool GameDirectories::enter() const
{
    if (!makeDirectories(writeDir + "/data") || chdir(writeDir.c_str()) != 0) {
        std::fprintf(stderr, "cannot use %s for the game's files: %s\n", writeDir.c_str(),
                     std::strerror(errno));
        return false;
    }
    return true;
}

void GameDirectories::addDataSearch(ResourceManager& resources) const
{
    if (!isSeparate())
        return;
    resources.addSearchDirectory(dataDir);
    if (isFile(dataDir + "/data.zip"))
        resources.addArchive(dataDir + "/data.zip");
}

std::string GameDirectories::describe() const
{
    if (!isSeparate())
        return "User files go to the game directory " + writeDir;
    return "User files go to " + writeDir + " (game data in " + dataDir + ")";
}
