#pragma once
// The full-window frame that tells the story between levels: one page of a
// cut-scene file at a time (pictures and text on a background, scaled to
// the window), "Page i of n" and next/previous buttons. After the last page
// (or on Escape) the file's onend action runs: "level" loads its level,
// "mainmenu" ends the adventure, anything else returns to the game.
#include <string>

#include "gui/TransFrame.h"
#include "menus/CutScene.h"

class ImageButton;
class Label;

class CutSceneFrame : public TransFrame {
public:
    static constexpr const char* componentName = "cutscene";
    static constexpr float controlsHeight = 70.0f;

    CutSceneFrame();

    // Covers the window.
    void update(float w, float h) override;
    void draw(IRenderer& renderer) override;
    // Right, space and Enter turn the page, left goes back, Escape skips to
    // the end; other keys go to the parent.
    void keyDown(int symbol, int character, const std::string& keyName) override;

    // Loads the named scene and shows its first page. A scene that cannot
    // be read, or has no pages, ends at once.
    void play(const std::string& sceneName);
    void nextPage();
    void previousPage();
    // Hides the frame and runs the scene's onend action.
    void finish();

    // Asks the Game for a save once the scene has handed the game back (a
    // new adventure's first save, taken after its opening).
    void setSaveWhenDone(bool on) { saveWhenDone = on; }
    bool isSaveWhenDone() const { return saveWhenDone; }

    const CutScene& getScene() const { return scene; }
    int getPage() const { return page; }
    const std::string& getPageText() const;
    // Page-to-window scale and the page's top-left corner in window pixels.
    float getScale() const { return scale; }

private:
    void showPage(int index);
    void layout();
    void drawPage(IRenderer& renderer, const CutScene::Page& p);
    // Back to the game (and its save, when one waits) when a level is
    // loaded, else to the main menu.
    void leave();

    CutScene scene;
    int page = 0;
    bool saveWhenDone = false;
    float scale = 1.0f;
    float pageX = 0.0f;
    float pageY = 0.0f;
    Label* pageLabel = nullptr;
    ImageButton* previous = nullptr;
    ImageButton* next = nullptr;
};
