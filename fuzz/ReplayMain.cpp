// Stand-in for libFuzzer's driver when building without it: runs the fuzz
// target once over every file named on the command line (or in a directory
// named there), so the seed corpus is exercised by every build.
#include <dirent.h>
#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

static int runFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        return 1;
    }
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    return 0;
}

int main(int argc, char** argv)
{
    int failures = 0;
    int runs = 0;
    for (int i = 1; i < argc; ++i) {
        const std::string path = argv[i];
        struct stat info {};
        if (stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) {
            DIR* dir = opendir(path.c_str());
            while (const dirent* entry = dir ? readdir(dir) : nullptr) {
                if (entry->d_name[0] == '.')
                    continue;
                failures += runFile(path + "/" + entry->d_name);
                ++runs;
            }
            if (dir)
                closedir(dir);
        } else {
            failures += runFile(path);
            ++runs;
        }
    }
    std::fprintf(stderr, "replayed %d inputs\n", runs);
    return failures == 0 && runs > 0 ? 0 : 1;
}
