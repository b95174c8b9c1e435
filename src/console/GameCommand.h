#pragma once

#include <functional>
#include <string>

// One console command: a lower-case name, a line of help text for `listcmds`
// and the action run when the command is executed. The action reads its
// arguments from the CommandRegistry while it runs.
using CommandAction = std::function<void()>;

class GameCommand {
public:
    GameCommand(std::string name, std::string description, CommandAction action);
    virtual ~GameCommand() = default;

    std::string name;         // always lower case
    std::string description;  // one line, shown by listcmds
    CommandAction action;     // may be empty; running it then does nothing
};
