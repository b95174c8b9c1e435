#include "console/Console.h"

const RGBAColour Console::normalColour(27, 209, 255, 255);
const RGBAColour Console::warningColour(225, 0, 0, 255);
const RGBAColour Console::debugColour(0, 225, 0, 255);

void Console::print(const std::string& text) { printColoured(text, normalColour); }

void Console::printColoured(const std::string& text, const RGBAColour& colour)
{
    lines.push_back({text, colour});
}

void Console::printWarning(const std::string& text) { printColoured(text, warningColour); }

void Console::printDebug(const std::string& text) { printColoured(text, debugColour); }
