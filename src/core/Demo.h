#pragma once
// A recorded session: the level it starts on, the random seed and the
// simulation variables, then per fixed world step the commands that reached
// the game (bound key texts, console lines, the release of every control)
// and the player's aim point in world coordinates. Every few steps it holds
// a hash of the world, with one digest per moving body, so a replay can say
// where and in which bodies it first went its own way.
//
// The file is text, a record per line, in step order:
//   brindlequay demo 1
//   level <name>            entry <spawn point>      seed <n>
//   var <name> <value>      hashinterval <n>         steps <n>
//   player health <n> armour <n> cash <n> upgrade <n> healthlevel <n>
//          armourlevel <n> swarmlevel <n> weapon <id> owns <id>,... ammo <type>:<n>,...
//   c <step> <command text> r <step>                 a <step> <x> <y>
//   h <step> <world hash> <body id>:<digest> ...
//   end
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class Demo {
public:
    static constexpr int formatVersion = 1;
    // A day of play at 40 steps a second; more is a corrupt count.
    static constexpr uint32_t maxSteps = 40u * 60u * 60u * 24u;
    static constexpr uint32_t defaultHashInterval = 40;
    static constexpr uint32_t maxHashInterval = 100000;
    // Bounds for what one read may allocate.
    static constexpr size_t maxFileBytes = 64u << 20;
    static constexpr size_t maxLineBytes = 4u << 20;
    static constexpr size_t maxCommandBytes = 1024;

    enum class EventKind { command, releaseAll };
    struct Event {
        uint32_t step = 0;
        EventKind kind = EventKind::command;
        std::string text;
    };
    struct Aim {
        uint32_t step = 0;
        float x = 0.0f;
        float y = 0.0f;
    };
    struct BodyDigest {
        int id = 0;
        uint32_t digest = 0;
    };
    // What the player carries into a demo that goes on from the level
    // before: without it a demo starts with a new player.
    struct PlayerState {
        static constexpr int maxHealth = 100000;
        static constexpr int maxCash = 100000000;
        static constexpr int maxAmmo = 100000;
        int health = 100;
        int armour = 0;
        int cash = 0;
        int upgrade = 0;
        int healthLevel = 1;
        int armourLevel = 1;
        int swarmLevel = 1;
        int weapon = 2;
        std::vector<int> owns;                  // weapon ids 1 to 11, ascending
        std::vector<std::pair<int, int>> ammo;  // ammo type 0 to 11 -> count, -1 unlimited
        bool operator==(const PlayerState& o) const
        {
            return health == o.health && armour == o.armour && cash == o.cash && upgrade == o.upgrade &&
                   healthLevel == o.healthLevel && armourLevel == o.armourLevel && swarmLevel == o.swarmLevel &&
                   weapon == o.weapon && owns == o.owns && ammo == o.ammo;
        }
        // One "player" line's words after the key; false leaves `error` set.
        bool parse(const std::string& text, std::string& error);
        std::string text() const;
    };
    struct Checkpoint {
        uint32_t step = 0;
        uint64_t hash = 0;
        std::vector<BodyDigest> bodies;
    };

    std::string level;
    std::string entry;
    uint32_t seed = 1;
    std::vector<std::pair<std::string, std::string>> vars;
    uint32_t hashInterval = defaultHashInterval;
    uint32_t steps = 0;
    std::optional<PlayerState> player;
    std::vector<Event> events;
    std::vector<Aim> aims;
    std::vector<Checkpoint> checkpoints;

    // Parses a whole demo. False with the reason ("line 7: ...") in `error`;
    // the demo is then left empty.
    bool read(std::istream& in, std::string& error);
    // The file at `path`, refusing one larger than maxFileBytes.
    bool load(const std::string& path, std::string& error);
    void write(std::ostream& out) const;
    // Replaces the file whole or not at all; creates its directory.
    bool save(const std::string& path) const;
    void clear() { *this = Demo(); }

    // Letters, digits, "-", "_" and "." (not first), at most 64 characters:
    // a name never reaches outside demos/.
    static bool isDemoName(const std::string& name);
    static std::string pathFor(const std::string& name) { return "demos/" + name + ".dem"; }
};
