#include "console/VariableRegistry.h"

#include "console/CommandRegistry.h"
#include "console/ConsolePrint.h"
#include "resources/ResourceManager.h"

#include <tinyxml.h>

#include <cctype>
#include <cstdio>

static const RGBAColour titleColour(255, 205, 22, 255);
static const RGBAColour headerColour(255, 255, 255, 255);

static std::string lowerCase(std::string text) {
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

VariableRegistry& VariableRegistry::instance() {
    static VariableRegistry registry;
    return registry;
}

GameVar* findVar(const std::string& name) {
    return VariableRegistry::instance().findVar(name);
}

GameVar* getVar(const std::string& name) {
    return VariableRegistry::instance().getVar(name);
}

GameVar* createVar(const std::string& name, const std::string& value,
                   const std::string& description) {
    return VariableRegistry::instance().createVar(name, value, description);
}

GameVar* setVar(const std::string& name, const std::string& value) {
    return VariableRegistry::instance().setVar(name, value);
}

void VariableRegistry::registerCommands() {
    CommandRegistry& commands = CommandRegistry::instance();
    commands.registerCommand("set a variable", "set", [this] { setCommand(); });
    commands.registerCommand("toggle a variable", "toggle", [this] { toggleCommand(); });
    commands.registerCommand("list all the variables", "listvars", [this] { listCommand(); });
}

GameVar* VariableRegistry::findVar(const std::string& name) const {
    auto found = variables.find(lowerCase(name));
    return found == variables.end() ? nullptr : found->second.get();
}

GameVar* VariableRegistry::getVar(const std::string& name) {
    if (GameVar* var = findVar(name)) {
        return var;
    }
    std::printf("%s var has no initialised value, creating a new var\n", name.c_str());
    const std::string key = lowerCase(name);
    auto var = std::make_unique<GameVar>(key);
    GameVar* result = var.get();
    variables.emplace(key, std::move(var));
    return result;
}

GameVar* VariableRegistry::createVar(const std::string& name, const std::string& value,
                                     const std::string& description) {
    if (GameVar* var = findVar(name)) {
        // A variable looked up before its declaration was loaded still gets
        // its help text.
        if (var->description.empty()) {
            var->description = description;
        }
        var->setString(value);
        var->defaultValue = value;
        return var;
    }
    const std::string key = lowerCase(name);
    auto var = std::make_unique<GameVar>(key, description);
    var->setString(value);
    var->defaultValue = value;
    var->changed = false;
    GameVar* result = var.get();
    variables.emplace(key, std::move(var));
    return result;
}

GameVar* VariableRegistry::setVar(const std::string& name, const std::string& value) {
    if (GameVar* var = findVar(name)) {
        var->setString(value);
        return var;
    }
    return createVar(name, value, "");
}

void VariableRegistry::writeVariables(std::ostream& stream) const {
    stream << "\n\n//variables\n\n";
    for (const auto& entry : variables) {
        stream << entry.second->configLine() << '\n';
    }
    stream << '\n';
}

static std::string attributeText(const TiXmlElement* element, const char* key) {
    const char* value = element->Attribute(key);
    return value ? std::string(value) : std::string();
}

bool VariableRegistry::loadVariables(const std::string& fileName) {
    TiXmlDocument document(fileName);
    if (!ResourceManager::instance().loadDocument(document, fileName)) {
        std::printf("Could not load gamevars file: %s\n", fileName.c_str());
        return false;
    }
    const TiXmlElement* root = document.FirstChildElement();
    if (!root) {
        std::printf("Could not load gamevars file: %s\n", fileName.c_str());
        return false;
    }
    for (const TiXmlElement* element = root->FirstChildElement(); element;
         element = element->NextSiblingElement()) {
        const std::string name = attributeText(element, "name");
        if (name.empty()) {
            std::printf("ERROR: gamevar without a name in %s\n", fileName.c_str());
            continue;
        }
        GameVar* var = createVar(name, attributeText(element, "value"),
                                 attributeText(element, "description"));
        if (const char* type = element->Attribute("type")) {
            var->setType(type);
        } else {
            std::printf("ERROR: no type defined in gamevars.xml for gamevar: %s\n", name.c_str());
        }
        double low = 0.0;
        double high = 0.0;
        if (element->QueryDoubleAttribute("min", &low) == TIXML_SUCCESS &&
            element->QueryDoubleAttribute("max", &high) == TIXML_SUCCESS && low <= high) {
            var->setRange(low, high);
        }
    }
    return true;
}

void VariableRegistry::clearVariables() {
    variables.clear();
}

void VariableRegistry::setCommand() {
    const CommandRegistry& commands = CommandRegistry::instance();
    if (commands.argumentCount < 2) {
        conPrint("Invalid Usage! Proper Usage: set varname value");
        return;
    }
    setVar(commands.arguments[0], commands.arguments[1]);
}

void VariableRegistry::toggleCommand() {
    const CommandRegistry& commands = CommandRegistry::instance();
    if (commands.argumentCount < 1) {
        conPrint("Invalid Usage! Proper Usage: toggle varname");
        return;
    }
    if (GameVar* var = findVar(commands.arguments[0])) {
        var->setString(var->intValue == 0 ? "1" : "0");
    }
}

void VariableRegistry::listCommand() {
    const CommandRegistry& commands = CommandRegistry::instance();
    const std::string prefix = commands.argumentCount > 0 ? commands.arguments[0] : std::string();
    conPrintColoured("    Variable Listings", titleColour);
    conPrintColoured("    varname = value : description", headerColour);
    int count = 0;
    for (const auto& entry : variables) {
        const GameVar& var = *entry.second;
        if (var.name.compare(0, prefix.size(), prefix) != 0) {
            continue;
        }
        conPrint("    " + var.name + " = " + var.stringValue + " : " + var.description);
        ++count;
    }
    conPrintColoured("    Found " + std::to_string(count) + " Variables", titleColour);
}
