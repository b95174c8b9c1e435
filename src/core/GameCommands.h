#pragma once
// The Game's own console commands: maps, save games, video, pause, the map
// view, mouse grabbing, screenshots and debugging. Kept apart from Game so the
// frame code stays readable.
class Game;

class GameCommands {
public:
    // Registers every command, in the order listcmds shows them after the
    // registry's own. Called once from Game::registerCommands.
    static void registerAll(Game& game);
};
