#include "console/ConsolePrint.h"

#include "console/Console.h"
#include "core/Game.h"

Console* activeConsole()
{
    Game* game = Game::current();
    return game ? game->getConsole() : nullptr;
}

void conPrint(const std::string& text)
{
    if (Console* c = activeConsole())
        c->print(text);
}

void conPrintColoured(const std::string& text, const RGBAColour& colour)
{
    if (Console* c = activeConsole())
        c->printColoured(text, colour);
}

void conWarning(const std::string& text)
{
    if (Console* c = activeConsole())
        c->printWarning(text);
}

void conDebug(const std::string& text)
{
    if (Console* c = activeConsole())
        c->printDebug(text);
}
