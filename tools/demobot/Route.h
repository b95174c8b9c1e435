#pragma once
// A demo bot's route through one level: what the player sets out to do, in
// order. Each line is one action; "#" starts a comment.
//   level <name> [spawn point]   demo <name>
//   run <x>               run to x, jumping whatever stops the player
//   jump <x>              jump now and keep running to x
//   hook <x> <y> <x2>     fire the hook at (x, y), hold it until the player
//                         passes x2 (or the hook lets go), steering towards x2
//   fight <range> [secs]  shoot the nearest enemy within range until none is
//                         left (or secs pass); stands its ground meanwhile
//   hold <range> [secs]   as fight, without moving from the spot
//   shoot <x> <y> <secs>  stand and fire at a point (a practice target)
//   weapon <name>         change weapon (useitem)
//   wait <secs>           stand still
//   door <x> <y>          stand still until nothing solid is at (x, y): a
//                         door or shutter in the way has opened
//   boss <secs>           push blocks of the block boss's colour into it
//                         until it falls (or secs pass)
//   exit                  run into the level's exit until the level ends
#include <string>
#include <vector>

struct RouteAction {
    enum class Kind { run, jump, hook, fight, shoot, weapon, wait, door, boss, exit };
    Kind kind = Kind::run;
    float x = 0.0f;
    float y = 0.0f;
    float until = 0.0f;
    float seconds = 0.0f;
    // A fight that stands its ground rather than closing in.
    bool stand = false;
    std::string text;
    int line = 0;
};

struct Route {
    static constexpr size_t maxActions = 10000;
    static constexpr size_t maxBytes = 1u << 20;

    std::string level;
    std::string entry;
    std::string demo;
    std::vector<RouteAction> actions;

    // False with "line N: why" in `error`.
    bool read(const std::string& text, std::string& error);
    bool load(const std::string& path, std::string& error);
};
