#include "render/GameHUD.h"

#include <algorithm>

#include "gameplay/GameplaySingleton.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

void GameHUD::resize(int width, int height)
{
    screenWidth = width;
    screenHeight = height;
}

void GameHUD::update(float)
{
    const float now = levelTime();
    messages.erase(std::remove_if(messages.begin(), messages.end(),
                                  [now](const Message& m) { return m.expiresAt < now; }),
                   messages.end());
}

void GameHUD::showMessage(const std::string& text, int size)
{
    // Only a few lines fit on screen; the oldest gives way.
    if (messages.size() >= 4)
        messages.erase(messages.begin());
    messages.push_back({text, size, levelTime() + messageMs});
}

void GameHUD::draw(IRenderer* renderer, float)
{
    if (!renderer || messages.empty())
        return;
    FontRenderer* font = renderer->getFontRenderer();
    if (!font)
        return;
    renderer->begin2D();
    renderer->setTexturing(true);
    renderer->setBlending(true);
    // Newest message on top, stacked downwards from the upper middle.
    float y = static_cast<float>(screenHeight) * 0.75f;
    for (auto it = messages.rbegin(); it != messages.rend(); ++it) {
        const int size = it->size < 12 ? 14 : it->size;
        if (!font->selectFont("vera", size))
            break;
        const float x = font->centredX(0.0f, static_cast<float>(screenWidth), it->text);
        renderer->setColour(255.0f, 255.0f, 255.0f, 255.0f);
        font->drawTextShadowed(x, y, it->text);
        y -= static_cast<float>(size) + 8.0f;
    }
    renderer->end2D();
}
