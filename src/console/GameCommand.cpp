#include "console/GameCommand.h"

#include <utility>

GameCommand::GameCommand(std::string name, std::string description, CommandAction action)
    : name(std::move(name)), description(std::move(description)), action(std::move(action)) {}
