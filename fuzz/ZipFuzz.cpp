// Fuzz target for the ZIP reader: indexes the input as an archive and reads
// every member it lists (up to a limit) from the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "resources/ZipFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    // The reader reports every step on standard output; keep the run quiet.
    static const bool quiet = std::freopen("/dev/null", "w", stdout) != nullptr;
    (void)quiet;

    ZipFile zip("fuzz.zip");
    if (!zip.index(data, size) || size == 0)
        return 0;
    std::FILE* file = fmemopen(const_cast<uint8_t*>(data), size, "rb");
    if (!file)
        return 0;
    int read = 0;
    for (const auto& entry : zip.getEntries()) {
        if (++read > 64)
            break;
        std::size_t length = 0;
        bool error = false;
        std::unique_ptr<char[]> bytes = ZipFile::readMember(file, size, *entry, length, error);
        if (bytes && bytes[length] != '\0')
            __builtin_trap();  // every buffer ends with its zero byte
        if (bytes && error)
            __builtin_trap();
    }
    std::fclose(file);
    return 0;
}
