#include "Route.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "core/Demo.h"

namespace {
bool number(const std::string& word, float& out)
{
    if (word.empty() || word.size() > 32)
        return false;
    char* end = nullptr;
    const float value = std::strtof(word.c_str(), &end);
    if (end != word.c_str() + word.size() || !std::isfinite(value) || std::fabs(value) > 1.0e7f)
        return false;
    out = value;
    return true;
}
}

bool Route::read(const std::string& text, std::string& error)
{
    *this = Route();
    std::istringstream in(text);
    std::string line;
    int lineNumber = 0;
    auto fail = [&](const std::string& why) {
        error = "line " + std::to_string(lineNumber) + ": " + why;
        return false;
    };
    while (std::getline(in, line)) {
        ++lineNumber;
        const size_t hash = line.find('#');
        std::istringstream words(line.substr(0, hash));
        std::vector<std::string> w;
        std::string word;
        while (words >> word && w.size() < 8)
            w.push_back(word);
        if (w.empty())
            continue;
        const std::string& key = w[0];
        RouteAction a;
        a.line = lineNumber;
        auto args = [&](size_t low, size_t high) { return w.size() - 1 >= low && w.size() - 1 <= high; };
        if (key == "level" && args(1, 2)) {
            level = w[1];
            entry = w.size() > 2 ? w[2] : "";
            continue;
        }
        if (key == "demo" && args(1, 1)) {
            if (!Demo::isDemoName(w[1]))
                return fail("bad demo name \"" + w[1] + "\"");
            demo = w[1];
            continue;
        }
        if ((key == "run" || key == "jump") && args(1, 1) && number(w[1], a.x)) {
            a.kind = key == "run" ? RouteAction::Kind::run : RouteAction::Kind::jump;
        } else if (key == "hook" && args(3, 3) && number(w[1], a.x) && number(w[2], a.y) && number(w[3], a.until)) {
            a.kind = RouteAction::Kind::hook;
        } else if ((key == "fight" || key == "hold") && args(1, 2) && number(w[1], a.x) && a.x > 0 &&
                   (w.size() < 3 || (number(w[2], a.seconds) && a.seconds > 0))) {
            a.kind = RouteAction::Kind::fight;
            a.stand = key == "hold";
            if (w.size() < 3)
                a.seconds = 60.0f;
        } else if (key == "shoot" && args(3, 3) && number(w[1], a.x) && number(w[2], a.y) &&
                   number(w[3], a.seconds) && a.seconds > 0 && a.seconds <= 600) {
            a.kind = RouteAction::Kind::shoot;
        } else if (key == "weapon" && args(1, 1)) {
            a.kind = RouteAction::Kind::weapon;
            a.text = w[1];
        } else if (key == "wait" && args(1, 1) && number(w[1], a.seconds) && a.seconds >= 0 && a.seconds <= 600) {
            a.kind = RouteAction::Kind::wait;
        } else if (key == "door" && args(2, 2) && number(w[1], a.x) && number(w[2], a.y)) {
            a.kind = RouteAction::Kind::door;
        } else if (key == "boss" && args(1, 1) && number(w[1], a.seconds) && a.seconds > 0 && a.seconds <= 40) {
            a.kind = RouteAction::Kind::boss;
        } else if (key == "exit" && args(0, 0)) {
            a.kind = RouteAction::Kind::exit;
        } else {
            return fail("cannot read \"" + line.substr(0, 60) + "\"");
        }
        if (actions.size() >= maxActions)
            return fail("too many actions");
        actions.push_back(a);
    }
    if (level.empty() || demo.empty())
        return fail("a route names its level and its demo");
    return true;
}

bool Route::load(const std::string& path, std::string& error)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = path + " cannot be read";
        return false;
    }
    std::string text(maxBytes + 1, '\0');
    in.read(&text[0], static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<size_t>(in.gcount()));
    if (text.size() > maxBytes) {
        error = path + " is too large";
        return false;
    }
    return read(text, error);
}
