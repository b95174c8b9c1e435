#include "input/BindingText.h"

#include <cctype>

#include "input/GameInput.h"

namespace BindingText {
namespace {
const std::string token = "$bind";

bool commandChar(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) || c == '+' || c == '-' || c == '_';
}

std::string keyText(const std::string& command, const KeyLookup& keyFor)
{
    const std::string key = keyFor(command);
    if (key.empty() || key == "unbound")
        return "(no key for " + command + ")";
    std::string upper = key;
    for (char& c : upper)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return upper;
}
}

std::string expand(const std::string& text, const KeyLookup& keyFor)
{
    std::string out;
    size_t at = 0;
    while (at < text.size()) {
        const size_t found = text.find(token, at);
        if (found == std::string::npos) {
            out.append(text, at, std::string::npos);
            break;
        }
        out.append(text, at, found - at);
        const size_t start = found + token.size();
        std::string command;
        size_t end = start;
        if (start < text.size() && text[start] == ':') {
            end = start + 1;
            while (end < text.size() && commandChar(text[end]))
                ++end;
            command = text.substr(start + 1, end - start - 1);
        } else if (start < text.size() && text[start] == '{') {
            const size_t close = text.find('}', start);
            if (close != std::string::npos) {
                command = text.substr(start + 1, close - start - 1);
                end = close + 1;
            }
        }
        if (command.empty()) {
            // Not a token after all: keep the text as written.
            out += token;
            at = start;
            continue;
        }
        out += keyText(command, keyFor);
        at = end;
    }
    return out;
}

std::string expand(const std::string& text, const GameInput* input)
{
    if (!input || text.find(token) == std::string::npos)
        return text;
    // A keyboard key or mouse button reads better than a pad input, which
    // would come first in name order ("joy1_button1" before "mouse1").
    return expand(text, [input](const std::string& command) {
        std::string pad;
        for (const auto& [key, bound] : input->getBindings()) {
            if (bound != command)
                continue;
            if (key.compare(0, 3, "joy") != 0)
                return key;
            if (pad.empty())
                pad = key;
        }
        return pad.empty() ? std::string("unbound") : pad;
    });
}

} // namespace BindingText
