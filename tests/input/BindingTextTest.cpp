#include <gtest/gtest.h>

#include <map>

#include "input/BindingText.h"
#include "input/GameInput.h"

namespace {
std::string keyFor(const std::string& command)
{
    static const std::map<std::string, std::string> keys = {
        {"+attack", "mouse1"}, {"+moveup", "space"}, {"savegame quicksave", "f5"}};
    const auto it = keys.find(command);
    return it == keys.end() ? "unbound" : it->second;
}
}

TEST(BindingText, ExpandsTokensAndLeavesOtherTextAlone)
{
    const struct {
        const char* in;
        const char* out;
    } cases[] = {
        {"Press $bind:+attack to fire.", "Press MOUSE1 to fire."},
        {"$bind:+moveup jumps", "SPACE jumps"},
        {"Quick save with $bind{savegame quicksave}!", "Quick save with F5!"},
        {"$bind:+attack/$bind:+moveup", "MOUSE1/SPACE"},
        {"$bind:+hover", "(no key for +hover)"},
        {"costs $5 and $bind alone", "costs $5 and $bind alone"},
        {"$bind: nothing, $bind{unclosed", "$bind: nothing, $bind{unclosed"},
        {"$bind{}", "$bind{}"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(BindingText::expand(c.in, keyFor), c.out) << c.in;
}

TEST(BindingText, NamesAKeyboardKeyOrMouseButtonBeforeAPadInput)
{
    GameInput input;
    input.setBinding("mouse1", "+attack");
    // A pad button sorts first but a player reading the message has a keyboard.
    input.setBinding("joy1_button3", "+attack");
    EXPECT_EQ(BindingText::expand("fire: $bind:+attack", &input), "fire: MOUSE1");
    input.setBinding("mouse1", "");
    EXPECT_EQ(BindingText::expand("fire: $bind:+attack", &input), "fire: JOY1_BUTTON3");
    EXPECT_EQ(BindingText::expand("fire: $bind:+attack", static_cast<const GameInput*>(nullptr)),
              "fire: $bind:+attack");
}
