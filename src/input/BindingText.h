#pragma once
// Level messages name the player's own keys: "$bind:+attack" becomes the key
// bound to "+attack" (upper case, e.g. "MOUSE1"), and "$bind{savegame quicksave}"
// does the same for a command with spaces. Text without tokens is unchanged.
#include <functional>
#include <string>

class GameInput;

namespace BindingText {

// The key bound to a command, or "unbound".
using KeyLookup = std::function<std::string(const std::string& command)>;

std::string expand(const std::string& text, const KeyLookup& keyFor);
// Through the running game's bindings; unchanged when there are none.
std::string expand(const std::string& text, const GameInput* input);

} // namespace BindingText
