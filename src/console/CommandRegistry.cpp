#include "console/CommandRegistry.h"

#include "console/ConsolePrint.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "resources/ResourceManager.h"

#include <cctype>
#include <cstdio>
#include <utility>

static const RGBAColour titleColour(255, 205, 22, 255);
static const RGBAColour headerColour(255, 255, 255, 255);

static std::string lowerCase(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

// A message for both the log and the console.
static void report(const std::string& text) {
    std::printf("%s\n", text.c_str());
    conPrint(text);
}

CommandRegistry& CommandRegistry::instance() {
    static CommandRegistry registry;
    return registry;
}

GameCommand* registerCommand(const std::string& description, const std::string& name,
                             CommandAction action) {
    return CommandRegistry::instance().registerCommand(description, name, std::move(action));
}

void CommandRegistry::registerCommands() {
    registerCommand("list all commands", "listcmds", [this] { listCommands(); });
    registerCommand("execute a script file", "exec", [this] { execScript(); });
}

GameCommand* CommandRegistry::registerCommand(const std::string& description,
                                              const std::string& name, CommandAction action) {
    const std::string key = lowerCase(name);
    auto found = commands.find(key);
    if (found != commands.end()) {
        return found->second.get();
    }
    auto command = std::make_unique<GameCommand>(key, description, std::move(action));
    GameCommand* result = command.get();
    commands.emplace(key, std::move(command));
    return result;
}

GameCommand* CommandRegistry::findCommand(const std::string& name) const {
    auto found = commands.find(lowerCase(name));
    return found == commands.end() ? nullptr : found->second.get();
}

std::vector<std::string> CommandRegistry::splitText(const std::string& text, char separator) {
    std::vector<std::string> words;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t start = text.find_first_not_of(separator, pos);
        if (start == std::string::npos) {
            break;
        }
        std::size_t end = text.find(separator, start);
        if (end == std::string::npos) {
            end = text.size();
        }
        words.push_back(text.substr(start, end - start));
        pos = end;
    }
    return words;
}

void CommandRegistry::parseCommandLine(const std::string& text) {
    arguments.clear();
    argumentCount = 0;
    commandName.clear();
    argumentLine.clear();

    std::vector<std::string> words = splitText(text, ' ');
    if (words.empty()) {
        return;
    }
    commandName = std::move(words.front());
    arguments.assign(std::make_move_iterator(words.begin() + 1),
                     std::make_move_iterator(words.end()));
    argumentCount = static_cast<int>(arguments.size());
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0) {
            argumentLine += ' ';
        }
        argumentLine += arguments[i];
    }
}

const std::string& CommandRegistry::arg(int index) const {
    static const std::string empty;
    if (index < 0 || index >= argumentCount) {
        return empty;
    }
    return arguments[static_cast<std::size_t>(index)];
}

void CommandRegistry::runCommand(const std::string& text) {
    if (text.empty()) {
        return;
    }
    parseCommandLine(text);
    if (watcher)
        watcher(commandName);

    if (GameCommand* command = findCommand(commandName)) {
        if (command->action) {
            // Keep the action alive even if it re-registers or clears commands.
            CommandAction action = command->action;
            action();
        }
        return;
    }

    if (GameVar* var = findVar(commandName)) {
        if (argumentCount == 0) {
            report(var->name + " = " + var->stringValue);
        } else {
            var->setString(arguments[0]);
        }
        return;
    }

    report("Unknown Command: " + commandName);
}

void CommandRegistry::executePending() {
    const std::string whitespace = " \t\n";
    std::string text;
    const std::size_t first = pendingText.find_first_not_of(whitespace);
    if (first != std::string::npos) {
        const std::size_t last = pendingText.find_last_not_of(whitespace);
        text = pendingText.substr(first, last - first + 1);
    }
    // Commands run below may append to and execute pendingText themselves;
    // this walk works on its own copy.
    pendingText.clear();

    // A bind keeps its ";" for the bound command.
    const bool bindMode = text.compare(0, 5, "bind ") == 0;

    std::string buffer;
    const std::size_t n = text.size();
    std::size_t i = 0;
    while (i < n) {
        const bool hasNext = i + 1 < n;
        if (hasNext && text[i] == '/' && text[i + 1] == '/') {
            break;
        }
        if (hasNext && text[i] == '/' && text[i + 1] == '*') {
            // The opening star may also close: "/*/" is a whole comment.
            std::size_t j = i;
            while (j + 1 < n && !(text[j] == '*' && text[j + 1] == '/')) {
                ++j;
            }
            i = j + 2;
            if (i >= n) {
                break;
            }
            // The character after "*/" is taken as it is, never as a new comment.
        }
        if (!bindMode && text[i] == ';') {
            runCommand(buffer);
            buffer.clear();
        } else {
            buffer += text[i];
        }
        ++i;
    }
    runCommand(buffer);
    pendingText.clear();
}

void CommandRegistry::execute(const std::string& text) {
    pendingText += text;
    executePending();
}

void CommandRegistry::clearCommands() {
    commands.clear();
}

void CommandRegistry::reset() {
    clearCommands();
    pendingText.clear();
    commandName.clear();
    arguments.clear();
    argumentCount = 0;
    argumentLine.clear();
    execDepth = 0;
}

void CommandRegistry::listCommands() {
    const std::string prefix = argumentCount > 0 ? arguments[0] : std::string();
    conPrintColoured("    Command Listings", titleColour);
    conPrintColoured("    cmdname : description", headerColour);
    int count = 0;
    for (const auto& entry : commands) {
        const GameCommand& command = *entry.second;
        if (command.name.compare(0, prefix.size(), prefix) != 0) {
            continue;
        }
        conPrint("    " + command.name + " : " + command.description);
        ++count;
    }
    conPrintColoured("    Found " + std::to_string(count) + " Commands", titleColour);
}

void CommandRegistry::execScript() {
    if (argumentCount == 0) {
        conPrint("Usage: exec <filename>");
        conPrint("e.g.: exec config.cfg");
        return;
    }
    // The lines below replace our arguments, so take what we need first.
    const std::string path = "data/" + arguments[0];
    if (execDepth >= maxExecDepth) {
        report("Couldn't exec " + path + ": scripts nested too deeply");
        return;
    }

    const std::string text = ResourceManager::instance().readText(path);
    if (text.empty()) {
        conPrint("Couldn't exec " + path);
        return;
    }
    conPrint("Found: " + path);

    ++execDepth;
    for (std::string line : splitText(text, '\n')) {
        // Scripts saved on Windows end their lines in CR LF; a kept CR would
        // end up in the last word (a binding that never fires).
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        pendingText.clear();
        pendingText += line;
        executePending();
    }
    --execDepth;

    conPrint("executed " + path);
}
