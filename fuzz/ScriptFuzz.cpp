// Fuzz target for command text: runs the input as console input against the
// registries' own commands, a few variables and scripts that exec each other.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "console/CommandRegistry.h"
#include "console/VariableRegistry.h"
#include "resources/ResourceManager.h"
#include "FuzzScratch.h"

static char scratch[] = "/tmp/bqscriptfuzzXXXXXX";

static bool setUp()
{
    fuzzscratch::enter(scratch);
    if (std::system("mkdir -p data") != 0)
        std::abort();
    std::ofstream("data/a.txt") << "set gravity -80; exec b.txt\ntoggle chasecam /* c */ ; listvars con\n";
    std::ofstream("data/b.txt") << "exec a.txt // again\r\nbind x exec a.txt; quit\n";
    ResourceManager::instance().clearArchives();
    CommandRegistry::instance().registerCommands();
    VariableRegistry::instance().registerCommands();
    registerCommand("echo the arguments", "echo", [] {
        const CommandRegistry& r = CommandRegistry::instance();
        std::string joined = r.arg(0);
        for (int i = 1; i < r.argumentCount; ++i)
            joined += " " + r.arg(i);
        if (joined != r.argumentLine)
            __builtin_trap();
    });
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static const bool ready = setUp();
    (void)ready;
    VariableRegistry& vars = VariableRegistry::instance();
    vars.clearVariables();
    vars.createVar("gravity", "-80", "pull")->setType("float");
    vars.createVar("chasecam", "1", "camera")->setType("int");
    vars.createVar("con_colour", "0,0,0,200", "colour")->setType("string");

    CommandRegistry::instance().execute(std::string(reinterpret_cast<const char*>(data), size));
    if (!CommandRegistry::instance().pendingText.empty())
        __builtin_trap();
    for (const auto& entry : vars.getVariables())
        (void)entry.second->configLine();
    return 0;
}
