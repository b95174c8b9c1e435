#include "console/CommandLine.h"

#include "console/CommandRegistry.h"

#include <cctype>
#include <cstdio>

static bool isSetCommand(const std::string& command) {
    if (command.size() < 3) {
        return false;
    }
    std::string word = command.substr(0, command.find(' '));
    for (char& c : word) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return word == "set";
}

void CommandLine::parse(int argc, const char* const* argv) {
    setCommands.clear();
    otherCommands.clear();
    std::vector<std::string> commands;
    bool inCommand = false;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i] ? argv[i] : "";
        if (!word.empty() && word[0] == '+') {
            if (word.size() == 1) {
                std::printf("Command line: ignoring a \"+\" without a command after it\n");
                inCommand = false;
                continue;
            }
            commands.push_back(word.substr(1));
            inCommand = true;
        } else if (inCommand) {
            commands.back() += ' ';
            commands.back() += word;
        } else {
            std::printf("Command line: ignoring \"%s\": commands start with \"+\", "
                        "e.g. brindlequay +set vidwidth 800 +map test\n",
                        word.c_str());
        }
    }
    for (std::string& command : commands) {
        (isSetCommand(command) ? setCommands : otherCommands).push_back(std::move(command));
    }
}

void CommandLine::run(std::vector<std::string>& commands) {
    // Taken out first: a command may itself start the game over.
    std::vector<std::string> pending;
    pending.swap(commands);
    for (const std::string& command : pending) {
        std::printf("Command line: %s\n", command.c_str());
        CommandRegistry::instance().execute(command);
    }
}

void CommandLine::runSetCommands() {
    run(setCommands);
}

void CommandLine::runOtherCommands() {
    run(otherCommands);
}
