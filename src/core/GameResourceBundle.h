#pragma once
// The services a gameplay controller works with, handed to it once when the
// Game installs it. Nothing here is owned: the Game keeps every manager, and
// the player member follows whichever Player the controller created last.

class BasicTimer;
class BodyFactory;
class Console;
class Game;
class GUIManager;
class InputManager;
class IRenderer;
class ISound;
class Player;
class QuadTree;

class GameResourceBundle {
public:
    virtual ~GameResourceBundle() = default;

    Game* game = nullptr;
    ISound* sound = nullptr;
    IRenderer* renderer = nullptr;
    InputManager* inputManager = nullptr;
    GUIManager* guiManager = nullptr;
    Console* console = nullptr;
    BasicTimer* timer = nullptr;
    QuadTree* quadTree = nullptr;
    Player* player = nullptr;
    BodyFactory* bodyFactory = nullptr;
};
