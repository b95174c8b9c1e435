#include "resources/AtomicFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace {
bool syncFile(const std::string& path)
{
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0)
        return false;
    const bool synced = ::fsync(fd) == 0;
    ::close(fd);
    return synced;
}

std::string directoryOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string(".") : path.substr(0, slash == 0 ? 1 : slash);
}
}

std::string AtomicFile::temporaryPath(const std::string& path) { return path + ".tmp"; }

bool AtomicFile::replace(const std::string& path, const std::function<bool(const std::string&)>& write)
{
    const std::string temporary = temporaryPath(path);
    // A leftover from an interrupted write is stale: start afresh.
    std::remove(temporary.c_str());
    if (!write(temporary) || !syncFile(temporary) || std::rename(temporary.c_str(), path.c_str()) != 0) {
        std::remove(temporary.c_str());
        return false;
    }
    // The rename itself lives in the directory.
    syncFile(directoryOf(path));
    return true;
}
