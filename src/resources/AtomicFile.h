#pragma once
// Replacing a file so that a crash, a kill or a full disk in the middle of
// writing never leaves it half written: the new contents go to a temporary
// file beside it, are flushed to the disk and only then renamed over the old
// file. Save games and their thumbnails are written this way.
#include <functional>
#include <string>

class AtomicFile {
public:
    // The temporary file that replace() writes for `path`, in the same
    // directory (a rename never crosses file systems).
    static std::string temporaryPath(const std::string& path);

    // Calls `write` with the temporary path; when it reports success the file
    // is synced and renamed over `path`. On failure the temporary file is
    // removed and `path` keeps its old contents. True when `path` was replaced.
    static bool replace(const std::string& path, const std::function<bool(const std::string&)>& write);
};
