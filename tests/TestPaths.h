#pragma once
// Where the tests find the source tree and the built game directory. CTest
// passes both in the environment; started by hand, the binary falls back to
// the paths the build was configured with, so it runs from any directory.
#include <cstdlib>
#include <string>

inline std::string testSourceDir()
{
    const char* dir = std::getenv("BQ_SOURCE_DIR");
    return dir && *dir ? dir : BQ_SOURCE_TREE;
}

inline std::string testGameDir()
{
    const char* dir = std::getenv("BQ_GAME_DIR");
    return dir && *dir ? dir : BQ_BUILT_GAME_DIR;
}
