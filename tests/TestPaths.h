#pragma once
// Where the tests find the source tree and the built game directory. CTest
// passes both in the environment; started by hand, the binary falls back to
// the paths the build was configured with, so it runs from any directory.
#include <cstdlib>
#include <string>

inline std::string testPathFromEnv(const char* variable, const char* configured)
{
    const char* dir = std::getenv(variable);
    return dir && *dir ? dir : configured;
}

inline std::string testSourceDir() { return testPathFromEnv("BQ_SOURCE_DIR", BQ_SOURCE_TREE); }
inline std::string testGameDir() { return testPathFromEnv("BQ_GAME_DIR", BQ_BUILT_GAME_DIR); }
