// The Game's on-screen notice: one short message over the picture, the
// menus included, for failures a player would otherwise only find in the log.
#include "core/Game.h"

#include <algorithm>

#include "core/Clock.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"
#include "render/TextFit.h"

namespace {
constexpr int noticeFontSize = 18;
}

std::string Game::saveNameFromArguments(const std::string& argumentLine)
{
    const size_t open = argumentLine.find('"');
    if (open == std::string::npos)
        return argumentLine;
    const size_t close = argumentLine.find('"', open + 1);
    return argumentLine.substr(open + 1, close == std::string::npos ? std::string::npos : close - open - 1);
}

void Game::showNotice(const std::string& text)
{
    noticeText = text;
    noticeShownAt = Clock::ticks();
}

std::string Game::currentNotice() const
{
    if (noticeText.empty() || Clock::ticks() - noticeShownAt >= noticeMs)
        return std::string();
    return noticeText;
}

void Game::drawNotice()
{
    const std::string text = currentNotice();
    FontRenderer* font = renderer ? renderer->getFontRenderer() : nullptr;
    if (text.empty() || !font || !font->selectFont("vera", noticeFontSize))
        return;
    const float width = static_cast<float>(renderer->getWidth());
    const float height = static_cast<float>(renderer->getHeight());
    const float oldScale = font->getScale();
    // Larger windows get larger text.
    font->setScale(std::clamp(height / 600.0f, 1.0f, 2.5f));
    const std::vector<std::string> lines = TextFit::wrap(*font, text, width * 0.8f);
    const float lineHeight = static_cast<float>(noticeFontSize) * font->getScale() * 1.3f;
    float baseline = height * 0.3f + lineHeight * static_cast<float>(lines.size() - 1);
    renderer->setTexturing(true);
    renderer->setBlending(true);
    for (const std::string& line : lines) {
        const float left = std::max(0.0f, (width - TextFit::drawnWidth(*font, line)) / 2.0f);
        renderer->setColour(0.0f, 0.0f, 0.0f, 255.0f);
        font->drawText(left + 1.0f, baseline - 1.0f, line);
        renderer->setColour(255.0f, 200.0f, 64.0f, 255.0f);
        font->drawText(left, baseline, line);
        baseline -= lineHeight;
    }
    font->setScale(oldScale);
}
