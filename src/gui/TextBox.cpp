#include "gui/TextBox.h"

#include <cctype>

#include "core/Game.h"
#include "input/InputManager.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

namespace {
constexpr float padding = 5.0f;
constexpr int leftShiftBit = 0;
constexpr int rightShiftBit = 1;
}

TextBox::TextBox()
{
    setBounds(64.0f, 64.0f, 160.0f, 24.0f);
    blink.start();
}

void TextBox::setText(const std::string& t)
{
    text = t.substr(0, maxLength);
    cursor = text.size();
}

void TextBox::setMaxLength(size_t n)
{
    maxLength = n;
    setText(text);
}

void TextBox::setFocused(bool f)
{
    Button::setFocused(f);
    blink.start();
}

void TextBox::clicked(float, float, int)
{
    playSound(clickSound);
}

bool TextBox::shiftHeld()
{
    Game* g = Game::current();
    if (!g)
        return false;
    const InputManager& input = g->getInputManager();
    return input.getModifier(leftShiftBit) || input.getModifier(rightShiftBit);
}

char TextBox::typedCharacter(const std::string& keyName, bool shift)
{
    if (keyName == "space")
        return ' ';
    // The rest of what a save name may hold.
    if (keyName == "-")
        return shift ? '_' : '-';
    if (keyName == ".")
        return '.';
    if (keyName.size() != 1)
        return 0;
    const unsigned char c = static_cast<unsigned char>(keyName[0]);
    if (std::isdigit(c))
        return static_cast<char>(c);
    if (std::isalpha(c))
        return static_cast<char>(shift ? std::toupper(c) : std::tolower(c));
    return 0;
}

void TextBox::keyDown(int symbol, int character, const std::string& keyName)
{
    bool accepted = true;
    if (keyName == "backspace") {
        if (cursor > 0)
            text.erase(--cursor, 1);
    } else if (keyName == "delete") {
        if (cursor < text.size())
            text.erase(cursor, 1);
    } else if (keyName == "left") {
        if (cursor > 0)
            --cursor;
    } else if (keyName == "right") {
        if (cursor < text.size())
            ++cursor;
    } else if (keyName == "home") {
        cursor = 0;
    } else if (keyName == "end") {
        cursor = text.size();
    } else if (keyName == "return" || keyName == "kp_enter") {
        fireAction(command, this);
    } else if (keyName == "ESCAPE") {
        Button::keyDown(symbol, character, keyName);
        return;
    } else if (const char c = acceptsQuotes && keyName == "'" && shiftHeld() ? '"'
                                                                            : typedCharacter(keyName, shiftHeld())) {
        accepted = text.size() < maxLength;
        if (accepted)
            text.insert(cursor++, 1, c);
    } else {
        accepted = false;
    }
    if (accepted) {
        playSound("data/sounds/gui/MouseTick.wav");
        blink.start();
    }
}

void TextBox::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.bindTexture("data/gui/bg.png");
    renderer.setColour(focused ? 70.0f : 50.0f, focused ? 74.0f : 50.0f, focused ? 90.0f : 56.0f, 255.0f);
    renderer.drawQuad(x, y, 0.0f, width, height);
    drawSunkenBevel(renderer, x, y, width, height);
    if (FontRenderer* font = textFont(renderer, "vera", 12)) {
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        // A text longer than the box shows its end, where the typing is.
        size_t first = 0;
        const float room = width - 2.0f * padding - 8.0f;
        while (first < cursor && font->textWidth(text.substr(first, cursor - first)) > room)
            ++first;
        const std::string shown = text.substr(first);
        const float baseline = font->centredY(y, height, shown);
        font->drawText(x + padding, baseline, shown);
        blink.tick();
        const bool cursorOn = static_cast<long>(blink.elapsed()) % 1000 < 500;
        if (focused && cursorOn) {
            const float cx = x + padding + font->textWidth(text.substr(first, cursor - first));
            font->drawText(cx - 1.0f, baseline, "|");
        }
    }
    drawChildren(renderer);
}
