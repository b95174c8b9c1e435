#pragma once
// Fuzz targets run in a private scratch directory, removed at exit, with
// the game's log chatter sent nowhere (the fuzzer reports on stderr).
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace fuzzscratch {
// The directory made from the pattern, kept for the removal at exit.
inline std::string directory;

inline void remove()
{
    const std::string command = "rm -rf '" + directory + "'";
    if (std::system(command.c_str()) != 0)
        std::fprintf(stderr, "could not remove %s\n", directory.c_str());
}

// `pattern` is "/tmp/<name>XXXXXX". The directory goes on /dev/shm when
// there is one: every input is written to a file, and rewriting a file on a
// disk file system (truncate, discard) costs more than the parse itself.
inline void enter(const char* pattern)
{
    if (!std::freopen("/dev/null", "w", stdout))
        std::abort();
    std::string path = pattern;
    struct stat info {};
    if (stat("/dev/shm", &info) == 0 && S_ISDIR(info.st_mode) && access("/dev/shm", W_OK) == 0)
        path = "/dev/shm/" + path.substr(path.rfind('/') + 1);
    if (!mkdtemp(path.data()) || chdir(path.c_str()) != 0)
        std::abort();
    directory = path;
    std::atexit(remove);
}

// libFuzzer reads corpus files lazily, after the first input has moved into
// the scratch directory, and writes crash files to the working directory,
// which is removed at exit: paths become absolute, and crash files go where
// the fuzzer was started unless told otherwise.
inline void absoluteArguments(int* argc, char*** argv)
{
    static std::vector<std::string> args;
    static std::vector<char*> pointers;
    bool artifactPrefix = false;
    for (int i = 0; i < *argc; ++i) {
        std::string arg = (*argv)[i];
        if (i > 0 && !arg.empty() && arg[0] != '-') {
            if (char* full = realpath(arg.c_str(), nullptr)) {
                arg = full;
                std::free(full);
            }
        }
        artifactPrefix = artifactPrefix || arg.rfind("-artifact_prefix=", 0) == 0;
        args.push_back(arg);
    }
    if (!artifactPrefix)
        if (char* here = getcwd(nullptr, 0)) {
            args.insert(args.begin() + 1, std::string("-artifact_prefix=") + here + "/");
            std::free(here);
        }
    for (std::string& arg : args)
        pointers.push_back(arg.data());
    pointers.push_back(nullptr);
    *argc = static_cast<int>(args.size());
    *argv = pointers.data();
}

// The fuzzer's bytes as the named file in the scratch directory.
inline void writeInput(const char* name, const uint8_t* data, std::size_t size)
{
    std::FILE* out = std::fopen(name, "wb");
    if (!out)
        std::abort();
    if (size > 0 && std::fwrite(data, 1, size, out) != size)
        std::abort();
    std::fclose(out);
}
}

// Every target that includes this header runs in the scratch directory.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    fuzzscratch::absoluteArguments(argc, argv);
    return 0;
}
