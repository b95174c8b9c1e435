#pragma once
// Printing to the game's console from anywhere. Without a running Game
// (tools, unit tests) the text goes nowhere.
#include <string>

#include "world/geometry/RGBAColour.h"

class Console;

void conPrint(const std::string& text);
void conPrintColoured(const std::string& text, const RGBAColour& colour);
void conWarning(const std::string& text);
void conDebug(const std::string& text);
// The console that receives the print helpers' output, or null.
Console* activeConsole();
