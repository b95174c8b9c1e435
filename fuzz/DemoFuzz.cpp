// libFuzzer target: arbitrary bytes as a demo file. Whatever reads must
// write back to text that reads again to the same demo, and no input may
// make the reader allocate without bound or crash.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "core/Demo.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    Demo demo;
    std::string error;
    if (!demo.read(in, error)) {
        if (error.empty())
            std::abort();
        return 0;
    }
    std::ostringstream first;
    demo.write(first);
    std::istringstream again(first.str());
    Demo reread;
    if (!reread.read(again, error))
        std::abort();
    std::ostringstream second;
    reread.write(second);
    if (first.str() != second.str())
        std::abort();
    return 0;
}
