#pragma once
// Fuzz targets run in a private scratch directory, removed at exit, with
// the game's log chatter sent nowhere (the fuzzer reports on stderr).
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace fuzzscratch {
// The mkdtemp pattern, kept for the removal at exit.
inline char* directory = nullptr;

inline void remove()
{
    const std::string command = std::string("rm -rf '") + directory + "'";
    if (std::system(command.c_str()) != 0)
        std::fprintf(stderr, "could not remove %s\n", directory);
}

// `pattern` ends in XXXXXX and must outlive the process.
inline void enter(char* pattern)
{
    if (!std::freopen("/dev/null", "w", stdout))
        std::abort();
    if (!mkdtemp(pattern) || chdir(pattern) != 0)
        std::abort();
    directory = pattern;
    std::atexit(remove);
}

// The fuzzer's bytes as the named file in the scratch directory.
inline void writeInput(const char* name, const uint8_t* data, std::size_t size)
{
    std::ofstream out(name, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}
}
