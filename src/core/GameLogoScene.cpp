#include "core/GameLogoScene.h"

#include <algorithm>

#include "core/Game.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

void GameLogoScene::run()
{
    Game* game = Game::current();
    if (!game || !game->getRenderer())
        return;
    running = true;
    sceneTimer.start();
    const float width = static_cast<float>(game->getRenderer()->getWidth());
    textX = width / 2.0f - 100.0f;
    rightX = width - 100.0f;
    while (frame(*game)) {
    }
}

void GameLogoScene::updateFade(float frameSeconds)
{
    if (alpha < 0.0f && fadingOut)
        running = false;
    if (alpha > 255.0f) {
        fadingOut = true;
        alpha = 255.0f;
    }
    if (alpha < 0.0f) {
        alpha = 0.0f;
        fadingOut = false;
    }
    alpha += (fadingOut ? -fadeSpeed : fadeSpeed) * frameSeconds;
}

bool GameLogoScene::frame(Game& game)
{
    if (!running)
        return false;
    beginFrame(game);
    updateFade(game.getTimer().frameTime());
    draw(game);
    endFrame(game);
    return running;
}

void GameLogoScene::draw(Game& game)
{
    IRenderer* renderer = game.getRenderer();
    FontRenderer* fonts = renderer ? renderer->getFontRenderer() : nullptr;
    if (!fonts || elapsed <= 0.0f)
        return;
    const float width = static_cast<float>(renderer->getWidth());
    const float height = static_cast<float>(renderer->getHeight());
    const float shown = static_cast<float>(static_cast<int>(std::max(0.0f, std::min(alpha, 255.0f))));
    renderer->begin2D();
    renderer->setBlending(true);
    renderer->setAlphaBlend();
    renderer->setTexturing(true);
    fonts->selectFont("vera", 24);
    // The maker's line starts left of centre, the name sits under it, indented.
    textX = width / 2.0f - 200.0f;
    textY = height / 2.0f + 20.0f;
    renderer->setColour(255.0f, 205.0f, 22.0f, shown);
    fonts->drawText(textX, textY, makerLine);
    textX = width / 2.0f - 100.0f;
    textY = height / 2.0f - 20.0f;
    renderer->setColour(255.0f, 255.0f, 255.0f, shown);
    fonts->drawText(textX, textY, gameName);
    renderer->setTexturing(false);
    renderer->end2D();
}
