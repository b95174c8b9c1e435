#pragma once

#include <string>
#include <vector>

// Console commands given on the program's command line, each starting with
// "+": `brindlequay +set vidwidth 800 +map test`. The words after a "+word"
// are its arguments. `set` commands run right after the start-up scripts (so
// they win over the configuration and still come before the video mode is
// set); the others run once start-up has finished.
class CommandLine {
public:
    CommandLine() = default;
    virtual ~CommandLine() = default;

    // Splits the arguments (argv[0] is the program and is skipped) into
    // commands. Words before the first "+" and a "+" on its own are reported
    // on standard output and dropped; the rest still runs.
    void parse(int argc, const char* const* argv);

    // Runs the `set` commands, then forgets them.
    void runSetCommands();
    // Runs every other command in order, then forgets them.
    void runOtherCommands();

    const std::vector<std::string>& getSetCommands() const { return setCommands; }
    const std::vector<std::string>& getOtherCommands() const { return otherCommands; }

private:
    static void run(std::vector<std::string>& commands);

    std::vector<std::string> setCommands;
    std::vector<std::string> otherCommands;
};
