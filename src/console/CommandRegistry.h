#pragma once

#include "console/GameCommand.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

// The process-wide table of console commands and the interpreter for command
// text. Text typed in the console, bound to keys or read from scripts is
// appended to `pendingText` and run by executePending(): it is split into
// commands at ";" and into words at blanks. A word that names no command reads
// or sets the game variable of that name instead.
class CommandRegistry {
public:
    // The one registry of the process.
    static CommandRegistry& instance();

    CommandRegistry() = default;
    virtual ~CommandRegistry() = default;
    CommandRegistry(const CommandRegistry&) = delete;
    CommandRegistry& operator=(const CommandRegistry&) = delete;

    // Registers `listcmds` and `exec`. Runs first at start-up.
    void registerCommands();

    // Adds a command; the first registration of a name wins and is returned.
    GameCommand* registerCommand(const std::string& description, const std::string& name,
                                 CommandAction action);
    // Case-insensitive lookup; null when there is no such command.
    GameCommand* findCommand(const std::string& name) const;

    // Splits one command at blanks into commandName, arguments, argumentCount
    // and argumentLine.
    void parseCommandLine(const std::string& text);
    // Parses and runs one command (or reads/sets the variable of that name).
    void runCommand(const std::string& text);
    // Runs everything in pendingText and empties it.
    void executePending();
    // Appends `text` to pendingText and runs it: the usual way to run text.
    void execute(const std::string& text);

    // Splits text at `separator` into its non-empty runs (no quoting).
    static std::vector<std::string> splitText(const std::string& text, char separator);

    // Deletes every command (shutdown).
    void clearCommands();
    // Forgets commands, pending text and arguments: a fresh registry for tests.
    void reset();

    const std::map<std::string, std::unique_ptr<GameCommand>>& getCommands() const {
        return commands;
    }

    // Argument access for a running command's action. arg() answers "" past
    // the end, so actions need not check the count before every read.
    const std::string& arg(int index) const;

    // How deep scripts may exec other scripts before we refuse (a script that
    // execs itself would otherwise recurse until the stack runs out).
    static constexpr int maxExecDepth = 16;

    std::string pendingText;              // text waiting to be executed
    std::string commandName;              // first word of the command being run
    std::vector<std::string> arguments;   // the remaining words
    int argumentCount = 0;                // arguments.size()
    std::string argumentLine;             // the arguments joined by single blanks
    // Told the first word of every command line about to run, scripts'
    // included: demos note the cheats that ran.
    std::function<void(const std::string& name)> watcher;

private:
    void listCommands();
    void execScript();

    std::map<std::string, std::unique_ptr<GameCommand>> commands;
    int execDepth = 0;
};

// Shorthand for CommandRegistry::instance().registerCommand(...).
GameCommand* registerCommand(const std::string& description, const std::string& name,
                             CommandAction action);
