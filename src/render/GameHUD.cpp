#include "render/GameHUD.h"

#include <algorithm>

#include "gameplay/GameplaySingleton.h"
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

void GameHUD::draw(IRenderer*, float) {}
