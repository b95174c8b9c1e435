// The Game's gameplay controller and the player it makes, with its input and noclip.
#include "core/Game.h"

#include <utility>

#include "console/ConsolePrint.h"
#include "core/GameResourceBundle.h"
#include "gameplay/DefaultGameplay.h"
#include "gameplay/IGameplay.h"
#include "input/GameInput.h"
#include "render/IRenderer.h"
#include "world/body/Body.h"
#include "world/level/BodyFactory.h"

void Game::toggleNoclip()
{
    noclip = !noclip;
    conPrint(noclip ? "Noclip on" : "Noclip off");
    if (player)
        player->gravitymultiplier = noclip ? 0.0f : 1.0f;
}

void Game::setGameplay(std::unique_ptr<IGameplay> controller)
{
    if (controller.get() == gameplay.get())
        return;
    if (gameplay)
        releaseGameplay();
    gameplay = std::move(controller);
    if (!gameplay)
        return;
    GameResourceBundle bundle;
    bundle.game = this;
    bundle.sound = sound.get();
    bundle.renderer = renderer.get();
    bundle.inputManager = &inputManager;
    bundle.guiManager = guiManager.get();
    bundle.console = console.get();
    bundle.timer = &timer;
    bundle.quadTree = &quadTree;
    gameplay->setScreenSize(renderer->getWidth(), renderer->getHeight());
    gameplay->init(bundle);
}

bool Game::releaseGameplay()
{
    if (!gameplay)
        return true;
    const bool result = gameplay->shutdown();
    gameplay.reset();
    return result;
}

void Game::startGameplay()
{
    setGameplay(std::make_unique<DefaultGameplay>());
    installGameInput(std::unique_ptr<GameInput>(gameplay->createInput()));
    // Level files name the game's body types through the controller's factory.
    getBodyFactory()->setFallbackFactory(gameplay->getBodyFactory());

    createPlayer();
}

void Game::createPlayer()
{
    persistentPlayer.reset(gameplay ? gameplay->createBody("player") : nullptr);
    player = persistentPlayer.get();
    if (player) {
        player->autoid = 1;
        player->makeRectangle(16.0f, 16.0f);
        player->setMass(100.0f);
        player->updateBounds();
    }
}

void Game::resetPlayer()
{
    // The level's bodies may point at the old player: they go first.
    if (levelLoaded || !bodies.empty())
        unloadLevel();
    bodies.remove(persistentPlayer.get());
    activeBodies.remove(persistentPlayer.get());
    bodyIterNext = activeBodies.end();
    createPlayer();
}

void Game::installGameInput(std::unique_ptr<GameInput> input)
{
    gameInput = std::move(input);
    if (gameInput)
        gameInput->init();
    inputManager.setGameInput(gameInput.get());
}
