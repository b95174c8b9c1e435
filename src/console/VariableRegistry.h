#pragma once

#include "console/GameVar.h"

#include <map>
#include <memory>
#include <ostream>
#include <string>

// The process-wide table of game variables, keyed by lower-case name and kept
// in name order (the order of listings and of configuration files). Defaults
// come from data/gamevars.xml; scripts and the console override them with
// `set`, `toggle` or by typing a variable's name.
class VariableRegistry {
public:
    // The one registry of the process.
    static VariableRegistry& instance();

    VariableRegistry() = default;
    virtual ~VariableRegistry() = default;
    VariableRegistry(const VariableRegistry&) = delete;
    VariableRegistry& operator=(const VariableRegistry&) = delete;

    // Registers `set`, `toggle` and `listvars` with the command registry.
    void registerCommands();

    // Null when there is no variable of that (case-insensitive) name.
    GameVar* findVar(const std::string& name) const;
    // Never null: a missing variable is created empty, with a note in the log.
    GameVar* getVar(const std::string& name);
    // Creates the variable (not marked changed) or sets an existing one;
    // either way `value` becomes its default.
    GameVar* createVar(const std::string& name, const std::string& value,
                       const std::string& description);
    // Sets the variable, creating it untyped when missing.
    GameVar* setVar(const std::string& name, const std::string& value);

    // The "//variables" section of a configuration script.
    void writeVariables(std::ostream& stream) const;
    // Declares the variables of a definitions file (data/gamevars.xml);
    // false when the file cannot be read or parsed.
    bool loadVariables(const std::string& fileName);
    // Deletes every variable (shutdown, and between tests).
    void clearVariables();

    const std::map<std::string, std::unique_ptr<GameVar>>& getVariables() const {
        return variables;
    }

private:
    void setCommand();
    void toggleCommand();
    void listCommand();

    std::map<std::string, std::unique_ptr<GameVar>> variables;
};

// Shorthands for the process-wide registry.
GameVar* findVar(const std::string& name);
GameVar* getVar(const std::string& name);
GameVar* createVar(const std::string& name, const std::string& value,
                   const std::string& description);
GameVar* setVar(const std::string& name, const std::string& value);
