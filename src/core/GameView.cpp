// The Game's view of the world: camera, aim, bodies, sky, particles, crosshair and debug text.
#include "core/Game.h"

#include <algorithm>
#include <cmath>

#include "console/GameVar.h"
#include "core/DemoManager.h"
#include "gameplay/player/Player.h"
#include "input/GameInput.h"
#include "particles/ParticleManager.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/SkyManager.h"
#include "world/body/Body.h"

void Game::refreshVisibleBodies()
{
    if (!frustumcull || frustumcull->intValue == 0)
        return;
    visibleBodies.clear();
    quadTree.resetCounters();
    quadTree.collectVisible(*renderer, visibleBodies, true, frustumcull2 && frustumcull2->intValue != 0);
}

void Game::drawBodies()
{
    // The renderer draws each body's extras right after the body itself.
    if (frustumcull && frustumcull->intValue != 0) {
        for (Body* body : visibleBodies)
            renderer->drawBody(*body);
    } else {
        for (Body* body : bodies)
            renderer->drawBody(*body);
    }
    if (player && std::find(bodies.begin(), bodies.end(), player) == bodies.end())
        renderer->drawBody(*player);
}

void Game::drawWorld()
{
    updateCamera(timer.frameTime());
    if (player) {
        const bool chase = chasecam && chasecam->intValue == 1;
        const Vector& at = chase ? player->camera : player->renderpos;
        renderer->setCamera(at.x, at.y, showMap ? -1024.0f : -256.0f);
    }
    updateAim();
    const bool bloom = drawbloom && drawbloom->intValue == 1;
    if (bloom) {
        renderer->beginCapture();
        drawScene(true);
        renderer->endCapture();
    }
    drawScene(false);
    if (bloom)
        renderer->drawGlow();
    drawCrosshair();
    if (debuginfo && debuginfo->intValue > 0)
        drawDebugText();
}

void Game::drawCrosshair()
{
    const auto* p = dynamic_cast<const Player*>(player);
    if (!p || p->dead || inputManager.getCurrentTarget() != "game")
        return;
    // Projected while the world camera is still set, drawn over everything.
    const Vector at = renderer->worldToScreen(p->mouseWorldPos.x, p->mouseWorldPos.y, 0.0f);
    constexpr float gap = 4.0f;
    constexpr float arm = 10.0f;
    renderer->begin2D();
    renderer->setTexturing(false);
    renderer->drawLine(at.x - gap - arm, at.y, at.x - gap, at.y, 255, 255, 255, 255);
    renderer->drawLine(at.x + gap, at.y, at.x + gap + arm, at.y, 255, 255, 255, 255);
    renderer->drawLine(at.x, at.y - gap - arm, at.x, at.y - gap, 255, 255, 255, 255);
    renderer->drawLine(at.x, at.y + gap, at.x, at.y + gap + arm, 255, 255, 255, 255);
    renderer->setBlending(true);
    renderer->setTexturing(true);
    renderer->end2D();
}

void Game::drawScene(bool bloomPass)
{
    if (!bloomPass && drawsky && drawsky->intValue != 0 && !showMap)
        skyManager->draw(*renderer, renderer->getCamera(), timer.frameTime());
    drawBodies();
    if (drawparticles && drawparticles->intValue != 0)
        particleManager->draw();
    if (bloomPass)
        return;
    if (drawgrid && drawgrid->intValue > 0) {
        renderer->setTexturing(false);
        renderer->setBlending(false);
        quadTree.debugDraw(150.0f, [this](const Vector& from, const Vector& to, const RGBAColour& c) {
            renderer->drawLine(from.x, from.y, to.x, to.y, c.r, c.g, c.b, c.a);
        });
        renderer->setBlending(true);
    }
}

void Game::drawDebugText()
{
    FontRenderer* fonts = renderer->getFontRenderer();
    if (!fonts)
        return;
    renderer->begin2D();
    fonts->selectFont("vera", 14);
    if (bodyinfo && bodyinfo->intValue > 0) {
        renderer->setColour(255, 255, 255, 255);
        fonts->drawText(20, 140,
                        std::to_string(bodies.size()) + " TotalBodies : " +
                            std::to_string(quadTree.getTotalBodyCount()) + " in visible quads : " +
                            std::to_string(quadTree.getVisibleBodyCount()) + " in frustum");
    }
    if (partcileinfo && partcileinfo->intValue > 0) {
        renderer->setColour(255, 255, 255, 255);
        fonts->drawText(static_cast<float>(renderer->getWidth() - 140), 50,
                        std::to_string(particleManager->countParticles()) + " parts");
    }
    if (drawspeed && drawspeed->intValue > 0 && player) {
        renderer->setColour(255, 255, 255, 255);
        fonts->drawText(static_cast<float>(renderer->getWidth() - 128), 65,
                        std::to_string(static_cast<int>(player->vel.length2D())) + " UPS");
    }
    renderer->end2D();
}

void Game::updateAim()
{
    // The game cursor is virtual (moved by relative motion); aim where it
    // points in the world as the camera now sees it.
    auto* p = dynamic_cast<Player*>(player);
    // A demo being played holds the aim it recorded.
    if (!p || !gameInput || demos->isPlaying())
        return;
    Vector stick;
    if (gameInput->getAimStick(stick)) {
        p->mouseWorldPos = p->pos + stick * padAimDistance;
        p->mouseWorldPos.z = 0.0f;
        return;
    }
    p->mouseWorldPos = renderer->screenToWorld(gameInput->getMouseX(), gameInput->getMouseY());
}

bool Game::followChasePoint(const Vector& target, Vector& chase, float frameTime)
{
    const float dx = target.x - chase.x;
    const float dy = target.y - chase.y;
    const float d = std::sqrt(dx * dx + dy * dy);
    if (d < 2.0f)
        return true;
    const float ux = dx / d;
    const float uy = dy / d;
    if (d > 128.0f) {
        chase.x = target.x - 128.0f * ux;
        chase.y = target.y - 128.0f * uy;
        return false;
    }
    if (d > 2.0f) {
        chase.x += ux * d * frameTime;
        chase.y += uy * d * frameTime;
        return false;
    }
    return true;
}

void Game::updateCamera(float frameTime)
{
    if (player)
        cameraSettled = followChasePoint(player->pos, player->camera, frameTime);
}
