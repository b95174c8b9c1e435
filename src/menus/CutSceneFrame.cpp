#include "menus/CutSceneFrame.h"

#include <algorithm>
#include <cmath>

#include "core/Game.h"
#include "gui/GUIManager.h"
#include "gui/ImageButton.h"
#include "gui/Label.h"
#include "gui/TextLayout.h"
#include "menus/MainMenu.h"
#include "menus/MenuFrame.h"
#include "menus/ScreenListener.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

namespace {
constexpr float margin = 20.0f;
constexpr float buttonSize = 40.0f;
constexpr float minimumScale = 0.5f;
constexpr float textPadding = 8.0f;

class CutSceneFrameButtonListener : public ScreenListener<CutSceneFrame> {
public:
    using ScreenListener::ScreenListener;
    void actionPerformed(const std::string& command, GUIComponent*) override
    {
        if (command == "nextframe")
            screen.nextPage();
        else if (command == "prevframe")
            screen.previousPage();
    }
};

// Larger windows get larger type so a page reads the same at any size.
int fontSizeFor(float scale) { return scale < 1.25f ? 14 : scale < 1.75f ? 18 : 24; }

ImageButton* pageButton(CutSceneFrame& frame, const std::string& glyph, const std::string& command)
{
    auto button = std::make_unique<ImageButton>();
    button->setImages("data/gui/but" + glyph + ".png", "data/gui/but" + glyph + "over.png",
                      "data/gui/but" + glyph + "clicked.png");
    button->setCommand(command);
    button->setName(command);
    button->setBounds(0.0f, buttonSize, buttonSize, buttonSize);
    button->addActionListener(std::make_unique<CutSceneFrameButtonListener>(frame));
    return frame.add(std::move(button));
}
}

CutSceneFrame::CutSceneFrame()
{
    setName(componentName);
    setBackground("data/images/techbase.png");
    setFocusable(true);
    auto label = std::make_unique<Label>();
    label->setFont("vera", 14);
    label->setShadow(true);
    label->setName("pagenumber");
    pageLabel = add(std::move(label));
    previous = pageButton(*this, "prev", "prevframe");
    next = pageButton(*this, "next", "nextframe");
    setEnabled(false);
}

void CutSceneFrame::update(float w, float h)
{
    setBounds(0.0f, h, w, h);
    layout();
    TransFrame::update(w, h);
}

void CutSceneFrame::layout()
{
    scale = std::max(minimumScale, std::min((width - 2.0f * margin) / CutScene::pageWidth,
                                            (height - controlsHeight - margin) / CutScene::pageHeight));
    const float pageW = CutScene::pageWidth * scale;
    const float pageH = CutScene::pageHeight * scale;
    pageX = std::floor(x + (width - pageW) / 2.0f);
    pageY = std::floor(y - std::max(0.0f, (height - controlsHeight - pageH) / 2.0f));
    const float controlsTop = std::floor(pageY - pageH - (controlsHeight - buttonSize) / 2.0f);
    const float centre = x + width / 2.0f;
    pageLabel->setBounds(centre - 80.0f, controlsTop, 160.0f, buttonSize);
    previous->setBounds(centre - 80.0f - buttonSize - 10.0f, controlsTop, buttonSize, buttonSize);
    next->setBounds(centre + 90.0f, controlsTop, buttonSize, buttonSize);
}

void CutSceneFrame::play(const std::string& sceneName)
{
    const bool loaded = scene.load(CutScene::pathFor(sceneName));
    if (!loaded || scene.pages.empty()) {
        finish();
        return;
    }
    setEnabled(true);
    if (Game* game = Game::current())
        if (GUIManager* gui = game->getGUIManager()) {
            if (getParent())
                getParent()->bringToFront(this);
            gui->setFocus(this);
        }
    showPage(0);
}

void CutSceneFrame::showPage(int index)
{
    const int count = static_cast<int>(scene.pages.size());
    page = std::max(0, std::min(index, count - 1));
    pageLabel->setText("Page " + std::to_string(page + 1) + " of " + std::to_string(count));
    previous->setEnabled(page > 0);
}

void CutSceneFrame::nextPage()
{
    if (page + 1 >= static_cast<int>(scene.pages.size()))
        finish();
    else
        showPage(page + 1);
}

void CutSceneFrame::previousPage() { showPage(page - 1); }

const std::string& CutSceneFrame::getPageText() const { return pageLabel->getText(); }

void CutSceneFrame::finish()
{
    setEnabled(false);
    Game* game = Game::current();
    if (!game)
        return;
    if (scene.onend == "level" && !scene.endLevel().empty()) {
        const std::string level = scene.endLevel();
        game->loadLevel(level, scene.endSpawn());
        if (game->isLevelLoaded() && game->getCurrentLevel() == level) {
            leave();
            return;
        }
        // The next level is missing: the player is offered the menus
        // rather than a frozen world.
        game->unloadLevel();
    } else if (scene.onend == "mainmenu") {
        game->unloadLevel();
    }
    leave();
}

void CutSceneFrame::leave()
{
    Game* game = Game::current();
    if (game->isLevelLoaded()) {
        game->getInputManager().hideGUI();
        if (saveWhenDone)
            game->requestSave();
        saveWhenDone = false;
        return;
    }
    saveWhenDone = false;
    MenuFrame::showScreen(MainMenu::screenName);
}

void CutSceneFrame::keyDown(int symbol, int character, const std::string& keyName)
{
    if (!enabled) {
        TransFrame::keyDown(symbol, character, keyName);
        return;
    }
    if (keyName == "right" || keyName == "space" || keyName == "return" || keyName == "kp_enter")
        nextPage();
    else if (keyName == "left")
        previousPage();
    else if (keyName == "ESCAPE")
        finish();
    else
        TransFrame::keyDown(symbol, character, keyName);
}

void CutSceneFrame::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    TransFrame::draw(renderer);
    if (page >= 0 && page < static_cast<int>(scene.pages.size()))
        drawPage(renderer, scene.pages[static_cast<size_t>(page)]);
    drawChildren(renderer);
}

void CutSceneFrame::drawPage(IRenderer& renderer, const CutScene::Page& p)
{
    const float pageW = CutScene::pageWidth * scale;
    const float pageH = CutScene::pageHeight * scale;
    // An opaque sheet under the page: see-through backgrounds (stars, haze)
    // must not show the frame's own backdrop.
    renderer.setTexturing(false);
    renderer.setBlending(false);
    renderer.setColour(6.0f, 9.0f, 16.0f, 255.0f);
    renderer.drawQuad(pageX, pageY, 0.0f, pageW, pageH);
    renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
    renderer.drawImage(pageX, pageY, 0.0f, pageW, pageH, p.background);
    for (const CutScene::PagePicture& pic : p.pictures) {
        renderer.setTexturing(true);
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        renderer.drawImage(pageX + pic.box.x * scale, pageY - pic.box.y * scale, 0.0f, pic.box.width * scale,
                           pic.box.height * scale, pic.img);
    }
    drawBevel(renderer, pageX - 1.0f, pageY + 1.0f, pageW + 2.0f, pageH + 2.0f, 200.0f, 40.0f, 2.0f);
    FontRenderer* font = renderer.getFontRenderer();
    const int size = fontSizeFor(scale);
    const float lineHeight = std::ceil(static_cast<float>(size) * 1.4f);
    for (const CutScene::PageText& t : p.texts) {
        const float left = pageX + t.box.x * scale;
        const float top = pageY - t.box.y * scale;
        const float w = t.box.width * scale;
        const float h = t.box.height * scale;
        // A dark panel keeps the words readable on any picture.
        renderer.setTexturing(false);
        renderer.setColour(8.0f, 14.0f, 26.0f, 190.0f);
        renderer.drawQuad(left, top, 0.0f, w, h);
        drawBevel(renderer, left, top, w, h, 120.0f, 20.0f, 1.0f);
        if (!font)
            continue;
        renderer.setTexturing(true);
        font->selectFont("vera", size);
        const auto lines = TextLayout::wrap(t.text, w - 2.0f * textPadding, font);
        float lineTop = top - textPadding;
        for (const std::string& line : lines) {
            if (lineTop - lineHeight < top - h)
                break;
            renderer.setColour(235.0f, 242.0f, 255.0f, 255.0f);
            font->drawText(left + textPadding, font->centredY(lineTop, lineHeight, line), line);
            lineTop -= lineHeight;
        }
    }
}
