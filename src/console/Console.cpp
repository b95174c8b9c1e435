#include "console/Console.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <ctime>
#include <fstream>

#include "console/CommandRegistry.h"
#include "console/GameVar.h"
#include "console/VariableRegistry.h"
#include "core/Game.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

const RGBAColour Console::normalColour(27, 209, 255, 255);
const RGBAColour Console::warningColour(225, 0, 0, 255);
const RGBAColour Console::debugColour(0, 225, 0, 255);
const RGBAColour Console::highlightColour(255, 205, 22, 255);
const RGBAColour Console::listColour(255, 255, 255, 255);

namespace {
constexpr float textX = 10.0f;
constexpr int fontSize = 14;
constexpr float cursorPeriodMs = 1000.0f;
constexpr float cursorHiddenMs = 500.0f;

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string timeText()
{
    const std::time_t now = std::time(nullptr);
    const char* text = std::ctime(&now);
    return text ? text : "\n";
}

// The console of the running game: commands stay registered for the whole
// process, so they must not hold on to one console object.
Console* gameConsole()
{
    Game* game = Game::current();
    return game ? game->getConsole() : nullptr;
}
}

Console::Console() { uses2D = true; }

void Console::init()
{
    registerCommand("Quit the game", "quit", [] {
        if (Game* game = Game::current())
            game->setQuit(true);
    });
    registerCommand("Clear the console", "clear", [] {
        if (Console* c = gameConsole())
            c->clear();
    });
    registerCommand("Dump the console", "condump", [] {
        if (Console* c = gameConsole()) {
            const CommandRegistry& registry = CommandRegistry::instance();
            c->dump(registry.argumentCount > 0 ? registry.arg(0) : "condump.txt");
        }
    });
    registerCommand("Echo the current time and date", "time", [] {
        if (Console* c = gameConsole()) {
            std::string text = timeText();
            if (!text.empty() && text.back() == '\n')
                text.pop_back();
            c->print(text);
        }
    });
    registerCommand("print the text that follows", "echo", [] {
        if (Console* c = gameConsole())
            c->print(CommandRegistry::instance().argumentLine);
    });
    registerCommand("describe a command or variable: help <name>", "help", [] {
        if (Console* c = gameConsole())
            c->help(CommandRegistry::instance().argumentCount > 0 ? CommandRegistry::instance().arg(0) : "");
    });
    registerCommand("test function", "tester", [] {
        if (Console* c = gameConsole()) {
            c->printWarning("Warning: test warning");
            c->printDebug("Debug: some debug output");
        }
    });
    conColour = getVar("con_colour");
    showWarnings = getVar("con_showWarnings");
    showDebug = getVar("con_showDebug");
    conHeight = getVar("con_height");
    // The first draw reads the background from the variable.
    conColour->changed = true;
    cursorTimer.start();
}

void Console::help(const std::string& name)
{
    if (name.empty()) {
        print("Usage: help <command or variable>");
        print("listcmds lists the commands, listvars the variables");
        return;
    }
    bool found = false;
    if (const GameCommand* command = CommandRegistry::instance().findCommand(name)) {
        print(command->name + " : " + (command->description.empty() ? "(no description)" : command->description));
        found = true;
    }
    if (const GameVar* var = findVar(name)) {
        print(var->name + " = " + var->stringValue +
              (var->description.empty() ? std::string() : " : " + var->description));
        found = true;
    }
    if (!found)
        print("No command or variable called " + name);
}

void Console::setSize(int w, int h)
{
    width = w;
    height = h;
}

void Console::append(const std::string& text, const RGBAColour& colour, uint32_t kind)
{
    // Follow new lines unless the reader has scrolled back.
    const bool following = lines.empty() || scrollLine == lastLine;
    if (lines.size() >= maxLines) {
        lines.erase(lines.begin(), lines.begin() + static_cast<long>(maxLines / 10));
        scrollLine = std::max(0, scrollLine - static_cast<int>(maxLines / 10));
    }
    lines.push_back(std::make_unique<ConLine>(text, colour, kind));
    lastLine = static_cast<int>(lines.size()) - 1;
    if (following)
        scrollLine = lastLine;
}

void Console::print(const std::string& text) { append(text, textColour, ConLine::Normal); }

void Console::printColoured(const std::string& text, const RGBAColour& colour)
{
    append(text, colour, ConLine::Normal);
}

void Console::printColoured(const std::string& text, int r, int g, int b, int a)
{
    append(text, RGBAColour(static_cast<float>(r), static_cast<float>(g), static_cast<float>(b),
                            static_cast<float>(a)),
           ConLine::Normal);
}

void Console::printWarning(const std::string& text) { append(text, warningColour, ConLine::Warning); }

void Console::printDebug(const std::string& text) { append(text, debugColour, ConLine::Debug); }

void Console::clear() { lines.clear(); }

bool Console::dump(const std::string& fileName) const
{
    std::ofstream out(fileName, std::ios::trunc);
    if (!out)
        return false;
    out << "=== BEGINNING OF CONSOLE DUMP ===\n";
    out << "TimeStamp: " << timeText() << "\n\n";
    for (const auto& line : lines)
        out << line->text << "\n";
    out << "\n\n";
    out << "=== END OF CONSOLE DUMP ===\n";
    return static_cast<bool>(out);
}

void Console::keyDown(int symbol, int character, const std::string& keyName)
{
    if (keyName == "`")
        return;
    caret = std::min(caret, input.size());
    if (keyName == "return" || keyName == "kp_enter") {
        submit();
    } else if (keyName == "backspace") {
        if (caret > 0)
            input.erase(--caret, 1);
    } else if (keyName == "delete") {
        if (caret < input.size())
            input.erase(caret, 1);
    } else if (keyName == "left") {
        caret -= caret > 0 ? 1 : 0;
    } else if (keyName == "right") {
        caret += caret < input.size() ? 1 : 0;
    } else if (keyName == "pageup") {
        scroll(-pageLines);
    } else if (keyName == "pagedown") {
        scroll(pageLines);
    } else if (keyName == "home") {
        scrollLine = 0;
    } else if (keyName == "end") {
        scrollLine = lastLine;
    } else if (keyName == "up") {
        if (!history.empty()) {
            const int last = static_cast<int>(history.size()) - 1;
            historyCursor = std::clamp(historyCursor - 1, 0, last);
            setInput(history[static_cast<size_t>(historyCursor)]);
        }
    } else if (keyName == "down") {
        if (!history.empty()) {
            historyCursor += 1;
            if (historyCursor >= static_cast<int>(history.size())) {
                historyCursor = static_cast<int>(history.size());
                clearInput();
            } else {
                setInput(history[static_cast<size_t>(historyCursor)]);
            }
        }
    } else if (keyName == "tab") {
        complete();
    } else if (input.size() < maxInputLength && symbol >= 32 && symbol <= 126) {
        input.insert(caret++, 1, static_cast<char>(character & 0xFF));
    }
}

void Console::scroll(int count)
{
    scrollLine = std::clamp(scrollLine + count, 0, std::max(lastLine, 0));
}

void Console::mouseDown(float, float, int button)
{
    constexpr int wheelLines = 3;
    if (button == 4)
        scroll(-wheelLines);
    else if (button == 5)
        scroll(wheelLines);
}

void Console::submit()
{
    const std::string line = input;
    print(line);
    if (history.size() >= maxHistory)
        history.erase(history.begin());
    history.push_back(line);
    clearInput();
    historyCursor = static_cast<int>(history.size());
    if (line.empty())
        return;
    if (lineListener)
        lineListener(line);
    CommandRegistry::instance().execute(line);
}

void Console::complete()
{
    const std::string prefix = lowerCase(input);
    matchCount = 0;
    completion.clear();
    std::vector<std::string> commands;
    std::vector<std::string> variables;
    auto consider = [&](const std::string& name, std::vector<std::string>& found) {
        if (lowerCase(name).compare(0, prefix.size(), prefix) != 0)
            return;
        ++matchCount;
        found.push_back(name);
        if (completion.empty() || name.size() < completion.size())
            completion = name;
    };
    for (const auto& entry : CommandRegistry::instance().getCommands())
        consider(entry.second->name, commands);
    for (const auto& entry : VariableRegistry::instance().getVariables())
        consider(entry.second->name, variables);
    if (matchCount == 0)
        return;

    printColoured("    Auto Complete For:  " + input, highlightColour);
    printColoured("    Commands:", highlightColour);
    for (const std::string& name : commands)
        printColoured("    " + name, listColour);
    printColoured("    Variables:", highlightColour);
    for (const std::string& name : variables)
        printColoured("    " + name, listColour);
    printColoured("    " + std::to_string(matchCount) + (matchCount == 1 ? " Match" : " Matches") +
                      " For: " + input,
                  highlightColour);
    if (input.size() < completion.size())
        setInput(completion + " ");
    print(" ");
}

int Console::bandHeight(int screenHeight, float fraction)
{
    if (!std::isfinite(fraction))
        fraction = 1.0f;
    fraction = std::clamp(fraction, 0.2f, 1.0f);
    int band = static_cast<int>(static_cast<float>(screenHeight) * fraction);
    if (band >= screenHeight)
        band = screenHeight - 2;
    return band;
}

void Console::updateBackgroundColour()
{
    if (conColour && conColour->changed) {
        backgroundColour.fromString(conColour->stringValue);
        conColour->changed = false;
    }
}

void Console::draw()
{
    if (!visible)
        return;
    Game* game = Game::current();
    IRenderer* renderer = game ? game->getRenderer() : nullptr;
    if (!renderer)
        return;
    // The whole console grows with the interface scale; fewer lines fit.
    const GameVar* uiScale = findVar("uiscale");
    const float wanted = uiScale ? uiScale->floatValue : 1.0f;
    const float scale = std::isfinite(wanted) ? std::clamp(wanted, 1.0f, 2.0f) : 1.0f;
    struct ScaleGuard {
        IRenderer& r;
        ~ScaleGuard() { r.setInterfaceScale(1.0f); }
    } guard{*renderer};
    renderer->setInterfaceScale(scale);
    const float screenW = static_cast<float>(width) / scale;
    const float screenH = static_cast<float>(height) / scale;
    const int band = bandHeight(height, conHeight ? conHeight->floatValue : 0.5f);
    const float bandBottom = screenH - static_cast<float>(band) / scale;
    updateBackgroundColour();

    renderer->setTexturing(false);
    renderer->setBlending(true);
    renderer->setAlphaBlend();
    renderer->setColour(backgroundColour);
    renderer->drawQuad(0.0f, screenH, 0.0f, screenW, static_cast<float>(band));
    renderer->setColour(edgeColour);
    renderer->drawLine(0.0f, bandBottom, screenW, bandBottom, 2.0f);

    FontRenderer* fonts = renderer->getFontRenderer();
    if (!fonts)
        return;
    renderer->setTexturing(true);
    fonts->selectFont("vera", fontSize);

    // The cursor shows for the second half of each second.
    const float sinceBlink = BasicTimer::now() - cursorTimer.startTime;
    if (sinceBlink > cursorPeriodMs)
        cursorTimer.start();
    renderer->setColour(textColour);
    fonts->drawText(textX, bandBottom + 5.0f, "]" + input);
    if (sinceBlink > cursorHiddenMs)
        fonts->drawText(textX + fonts->textWidth("]" + input.substr(0, std::min(caret, input.size()))),
                        bandBottom + 5.0f, "_");

    const float lineStep = fonts->textHeight("") + 2.0f;
    const float topLimit = screenH - lineStep - 5.0f;
    if (lineStep > 0.0f)
        pageLines = std::max(1, static_cast<int>((topLimit - bandBottom - 25.0f) / lineStep));
    float y = bandBottom + 25.0f;
    if (scrollLine != lastLine) {
        renderer->setColour(highlightColour);
        fonts->drawText(textX, y, "^^^^^^^^^^^^^^^^^^^");
        y += lineStep;
    }
    const bool warnings = showWarnings && showWarnings->intValue != 0;
    const bool debug = showDebug && showDebug->intValue != 0;
    const int newest = std::min(scrollLine, static_cast<int>(lines.size()) - 1);
    for (int i = newest; i >= 0; --i) {
        const ConLine& line = *lines[static_cast<size_t>(i)];
        if (line.flags.hasFlag(ConLine::Warning) && !warnings)
            continue;
        if (line.flags.hasFlag(ConLine::Debug) && !debug)
            continue;
        if (y > topLimit)
            break;
        renderer->setColour(line.colour);
        fonts->drawText(textX, y, line.text);
        y += lineStep;
    }
    renderer->setTexturing(false);
}
