#include "core/Demo.h"

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "core/Game.h"
#include "resources/AtomicFile.h"

namespace {
const char* const magic = "brindlequay demo";

bool isPlainWord(const std::string& word)
{
    if (word.empty() || word.size() > 128)
        return false;
    for (unsigned char c : word)
        if (c <= ' ' || c >= 127)
            return false;
    return true;
}

// Whole-token unsigned parse; no sign, no junk, no overflow.
bool parseUnsigned(const std::string& text, uint64_t limit, uint64_t& out)
{
    if (text.empty() || text.size() > 20 || text.find_first_not_of("0123456789") != std::string::npos)
        return false;
    errno = 0;
    const unsigned long long value = std::strtoull(text.c_str(), nullptr, 10);
    if (errno != 0 || value > limit)
        return false;
    out = value;
    return true;
}

bool parseHex(const std::string& text, int maxDigits, uint64_t& out)
{
    if (text.empty() || static_cast<int>(text.size()) > maxDigits ||
        text.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        return false;
    out = std::strtoull(text.c_str(), nullptr, 16);
    return true;
}

bool parseFinite(const std::string& text, float& out)
{
    if (text.empty() || text.size() > 64)
        return false;
    char* end = nullptr;
    errno = 0;
    const float value = std::strtof(text.c_str(), &end);
    if (end != text.c_str() + text.size() || !std::isfinite(value))
        return false;
    out = value;
    return true;
}

std::string floatText(float value)
{
    // Nine significant digits bring a float back bit for bit.
    char buffer[48];
    std::snprintf(buffer, sizeof buffer, "%.9g", static_cast<double>(value));
    return buffer;
}

// The first word of `line` from `pos` on; pos moves past it and one blank.
std::string nextWord(const std::string& line, size_t& pos)
{
    const size_t end = line.find(' ', pos);
    std::string word = line.substr(pos, end == std::string::npos ? std::string::npos : end - pos);
    pos = end == std::string::npos ? line.size() : end + 1;
    return word;
}
}

bool Demo::PlayerState::parse(const std::string& text, std::string& error)
{
    *this = PlayerState();
    auto number = [](const std::string& word, int low, int high, int& out) {
        const bool negative = !word.empty() && word[0] == '-';
        uint64_t value = 0;
        if (!parseUnsigned(negative ? word.substr(1) : word, static_cast<uint64_t>(INT32_MAX), value))
            return false;
        const int64_t signedValue = negative ? -static_cast<int64_t>(value) : static_cast<int64_t>(value);
        if (signedValue < low || signedValue > high)
            return false;
        out = static_cast<int>(signedValue);
        return true;
    };
    bool seen[11] = {};
    size_t pos = 0;
    while (pos < text.size()) {
        const std::string key = nextWord(text, pos);
        const std::string value = pos < text.size() ? nextWord(text, pos) : "";
        static const char* const keys[] = {"health", "armour", "cash", "upgrade", "healthlevel", "armourlevel",
                                           "swarmlevel", "weapon", "owns", "ammo"};
        size_t k = 0;
        while (k < std::size(keys) && key != keys[k])
            ++k;
        if (k == std::size(keys)) {
            error = "unknown player value \"" + key.substr(0, 40) + "\"";
            return false;
        }
        if (seen[k]) {
            error = "player value " + key + " given twice";
            return false;
        }
        seen[k] = true;
        bool ok = true;
        switch (k) {
        case 0: ok = number(value, 1, maxHealth, health); break;
        case 1: ok = number(value, 0, maxHealth, armour); break;
        case 2: ok = number(value, 0, maxCash, cash); break;
        case 3: ok = number(value, 0, 12, upgrade); break;
        case 4: ok = number(value, 1, 5, healthLevel); break;
        case 5: ok = number(value, 1, 5, armourLevel); break;
        case 6: ok = number(value, 1, 5, swarmLevel); break;
        case 7: ok = number(value, 1, 11, weapon); break;
        case 8: {
            // Ids ascending: at most eleven, no repeats.
            size_t at = 0;
            while (ok && at < value.size()) {
                const size_t comma = std::min(value.find(',', at), value.size());
                int id = 0;
                ok = number(value.substr(at, comma - at), 1, 11, id) && (owns.empty() || id > owns.back());
                if (ok)
                    owns.push_back(id);
                at = comma + 1;
            }
            ok = ok && !owns.empty();
            break;
        }
        default: {
            size_t at = 0;
            while (ok && at < value.size()) {
                const size_t comma = std::min(value.find(',', at), value.size());
                const std::string item = value.substr(at, comma - at);
                const size_t colon = item.find(':');
                int type = 0;
                int count = 0;
                ok = colon != std::string::npos && number(item.substr(0, colon), 0, 11, type) &&
                     number(item.substr(colon + 1), -1, maxAmmo, count) && (ammo.empty() || type > ammo.back().first);
                if (ok)
                    ammo.emplace_back(type, count);
                at = comma + 1;
            }
            ok = ok && !ammo.empty();
            break;
        }
        }
        if (!ok) {
            error = "bad player " + key + " \"" + value.substr(0, 40) + "\"";
            return false;
        }
    }
    if (!seen[0]) {
        error = "player line without health";
        return false;
    }
    return true;
}

std::string Demo::PlayerState::text() const
{
    std::string out = "health " + std::to_string(health) + " armour " + std::to_string(armour) + " cash " +
                      std::to_string(cash) + " upgrade " + std::to_string(upgrade) + " healthlevel " +
                      std::to_string(healthLevel) + " armourlevel " + std::to_string(armourLevel) +
                      " swarmlevel " + std::to_string(swarmLevel) + " weapon " + std::to_string(weapon);
    for (size_t i = 0; i < owns.size(); ++i)
        out += (i ? "," : " owns ") + std::to_string(owns[i]);
    for (size_t i = 0; i < ammo.size(); ++i)
        out += (i ? "," : " ammo ") + std::to_string(ammo[i].first) + ":" + std::to_string(ammo[i].second);
    return out;
}

bool Demo::isDemoName(const std::string& name)
{
    // The save-name rule, less the blank that would split a console argument.
    return name.find(' ') == std::string::npos && Game::isSaveName(name);
}

bool Demo::read(std::istream& in, std::string& error)
{
    clear();
    std::string line;
    size_t lineNumber = 0;
    bool haveSteps = false;
    bool ended = false;
    uint32_t lastEventStep = 0;
    uint32_t lastAimStep = 0;
    uint32_t lastCheckStep = 0;
    auto fail = [&](const std::string& why) {
        error = "line " + std::to_string(lineNumber) + ": " + why;
        clear();
        return false;
    };

    while (!ended) {
        // A bounded read: a "line" without an end cannot take all memory.
        line.clear();
        int c = 0;
        while ((c = in.get()) != EOF && c != '\n') {
            if (line.size() >= maxLineBytes)
                return fail("line longer than " + std::to_string(maxLineBytes) + " bytes");
            line.push_back(static_cast<char>(c));
        }
        if (c == EOF && line.empty())
            break;
        ++lineNumber;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();

        if (lineNumber == 1) {
            if (line.compare(0, std::string(magic).size(), magic) != 0)
                return fail("not a demo file (it must start with \"brindlequay demo\")");
            uint64_t version = 0;
            const std::string rest = line.size() > 17 ? line.substr(17) : "";
            if (line.size() < 18 || line[16] != ' ' || !parseUnsigned(rest, 1000, version))
                return fail("no format version after \"brindlequay demo\"");
            if (version != formatVersion)
                return fail("format version " + std::to_string(version) + " is not " +
                            std::to_string(formatVersion));
            continue;
        }
        if (line.empty())
            continue;

        size_t pos = 0;
        const std::string key = nextWord(line, pos);
        const std::string rest = pos < line.size() ? line.substr(pos) : "";

        if (key == "end") {
            ended = true;
        } else if (key == "level" || key == "entry") {
            if (key == "level" && !isPlainWord(rest))
                return fail("bad level name");
            if (key == "entry" && !rest.empty() && !isPlainWord(rest))
                return fail("bad entry name");
            (key == "level" ? level : entry) = rest;
        } else if (key == "seed") {
            uint64_t value = 0;
            if (!parseUnsigned(rest, UINT32_MAX, value))
                return fail("bad seed");
            seed = static_cast<uint32_t>(value);
        } else if (key == "var") {
            size_t at = 0;
            const std::string name = nextWord(rest, at);
            const std::string value = at < rest.size() ? rest.substr(at) : "";
            if (!isPlainWord(name) || (!value.empty() && !isPlainWord(value)))
                return fail("bad variable line");
            if (vars.size() >= 64)
                return fail("too many variables");
            vars.emplace_back(name, value);
        } else if (key == "player") {
            if (player)
                return fail("a second \"player\" line");
            PlayerState state;
            std::string why;
            if (!state.parse(rest, why))
                return fail(why);
            player = std::move(state);
        } else if (key == "hashinterval") {
            uint64_t value = 0;
            if (!parseUnsigned(rest, maxHashInterval, value) || value == 0)
                return fail("hash interval must be 1 to " + std::to_string(maxHashInterval));
            hashInterval = static_cast<uint32_t>(value);
        } else if (key == "steps") {
            if (haveSteps)
                return fail("a second \"steps\" line");
            uint64_t value = 0;
            if (!parseUnsigned(rest, maxSteps, value))
                return fail("step count must be 0 to " + std::to_string(maxSteps));
            steps = static_cast<uint32_t>(value);
            haveSteps = true;
        } else if (key == "c" || key == "r" || key == "a" || key == "h") {
            if (!haveSteps)
                return fail("a step record before the \"steps\" line");
            uint64_t step = 0;
            if (!parseUnsigned(nextWord(line, pos), steps, step))
                return fail("step number missing or past the demo's " + std::to_string(steps) + " steps");
            const uint32_t at = static_cast<uint32_t>(step);
            const std::string tail = pos < line.size() ? line.substr(pos) : "";
            if (key == "c" || key == "r") {
                if (at < lastEventStep)
                    return fail("commands out of step order");
                if (at >= steps)
                    return fail("a command after the last step");
                lastEventStep = at;
                if (events.size() >= static_cast<size_t>(steps) * 8 + 64)
                    return fail("more commands than the steps could hold");
                Event event;
                event.step = at;
                if (key == "r") {
                    event.kind = EventKind::releaseAll;
                } else {
                    if (tail.empty() || tail.size() > maxCommandBytes)
                        return fail("empty or overlong command");
                    event.text = tail;
                }
                events.push_back(std::move(event));
            } else if (key == "a") {
                if (at >= steps || (!aims.empty() && at <= lastAimStep))
                    return fail("aim out of step order");
                lastAimStep = at;
                size_t p = 0;
                Aim aim;
                aim.step = at;
                const std::string xs = nextWord(tail, p);
                const std::string ys = p < tail.size() ? tail.substr(p) : "";
                if (!parseFinite(xs, aim.x) || !parseFinite(ys, aim.y))
                    return fail("bad aim point");
                aims.push_back(aim);
            } else {
                if (at == 0 || (!checkpoints.empty() && at <= lastCheckStep))
                    return fail("world hash out of step order");
                lastCheckStep = at;
                Checkpoint check;
                check.step = at;
                size_t p = 0;
                if (!parseHex(nextWord(tail, p), 16, check.hash))
                    return fail("bad world hash");
                while (p < tail.size()) {
                    const std::string item = nextWord(tail, p);
                    const size_t colon = item.find(':');
                    uint64_t id = 0;
                    uint64_t digest = 0;
                    if (colon == std::string::npos || !parseUnsigned(item.substr(0, colon), INT32_MAX, id) ||
                        !parseHex(item.substr(colon + 1), 8, digest))
                        return fail("bad body digest \"" + item.substr(0, 40) + "\"");
                    check.bodies.push_back({static_cast<int>(id), static_cast<uint32_t>(digest)});
                }
                checkpoints.push_back(std::move(check));
            }
        } else {
            return fail("unknown record \"" + key.substr(0, 40) + "\"");
        }
    }
    if (lineNumber == 0)
        return fail("empty file");
    if (!ended)
        return fail("the file ends before its \"end\" line (truncated?)");
    if (level.empty())
        return fail("no level named");
    if (!haveSteps)
        return fail("no step count");
    return true;
}

bool Demo::load(const std::string& path, std::string& error)
{
    clear();
    std::error_code ec;
    const auto size = std::filesystem::file_size(path, ec);
    if (ec) {
        error = "cannot be read";
        return false;
    }
    if (size > maxFileBytes) {
        error = "larger than " + std::to_string(maxFileBytes >> 20) + " MiB";
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = "cannot be read";
        return false;
    }
    return read(in, error);
}

void Demo::write(std::ostream& out) const
{
    out << magic << ' ' << formatVersion << '\n';
    out << "level " << level << '\n';
    out << "entry" << (entry.empty() ? "" : " " + entry) << '\n';
    out << "seed " << seed << '\n';
    for (const auto& [name, value] : vars)
        out << "var " << name << ' ' << value << '\n';
    if (player)
        out << "player " << player->text() << '\n';
    out << "hashinterval " << hashInterval << '\n';
    out << "steps " << steps << '\n';
    // Merge the three streams by step. A hash at step n was taken once n
    // steps had run, before the commands of step n; then come the aim.
    size_t e = 0, a = 0, h = 0;
    char hash[24];
    while (e < events.size() || a < aims.size() || h < checkpoints.size()) {
        const uint64_t never = UINT64_MAX;
        const uint64_t es = e < events.size() ? events[e].step : never;
        const uint64_t as = a < aims.size() ? aims[a].step : never;
        const uint64_t hs = h < checkpoints.size() ? checkpoints[h].step : never;
        if (hs <= es && hs <= as) {
            const Checkpoint& check = checkpoints[h++];
            std::snprintf(hash, sizeof hash, "%016" PRIx64, check.hash);
            out << "h " << check.step << ' ' << hash;
            for (const BodyDigest& body : check.bodies) {
                std::snprintf(hash, sizeof hash, "%08" PRIx32, body.digest);
                out << ' ' << body.id << ':' << hash;
            }
            out << '\n';
        } else if (es <= as) {
            const Event& event = events[e++];
            if (event.kind == EventKind::releaseAll)
                out << "r " << event.step << '\n';
            else
                out << "c " << event.step << ' ' << event.text << '\n';
        } else {
            const Aim& aim = aims[a++];
            out << "a " << aim.step << ' ' << floatText(aim.x) << ' ' << floatText(aim.y) << '\n';
        }
    }
    out << "end\n";
}

bool Demo::save(const std::string& path) const
{
    std::error_code ec;
    const std::filesystem::path parent = std::filesystem::path(path).parent_path();
    if (!parent.empty())
        std::filesystem::create_directories(parent, ec);
    return AtomicFile::replace(path, [this](const std::string& temporary) {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        write(out);
        out.flush();
        return static_cast<bool>(out);
    });
}
