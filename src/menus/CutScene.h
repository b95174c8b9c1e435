#pragma once
// A cut-scene file: story pages shown between levels, and what happens after
// the last page. Pages are laid out on a 640 x 400 sheet (x right, y down
// from the top-left corner) that the cut-scene frame scales to the window.
#include <string>
#include <vector>

class CutScene {
public:
    static constexpr float pageWidth = 640.0f;
    static constexpr float pageHeight = 400.0f;
    static constexpr const char* defaultBackground = "data/images/concrete1.png";
    // Hostile files cannot make a scene of unbounded size.
    static constexpr size_t maxPages = 256;
    static constexpr size_t maxItemsPerPage = 64;

    struct Box {
        float x = 0.0f;
        float y = 0.0f;
        float width = 0.0f;
        float height = 0.0f;
    };
    struct PagePicture {
        Box box;
        std::string img;
    };
    struct PageText {
        Box box;
        std::string text;
    };
    struct Page {
        std::string background = defaultBackground;
        std::vector<PagePicture> pictures;
        std::vector<PageText> texts;
    };
    struct Scene {
        std::string level;
        std::string levelspawn;
    };

    // "data/adventures/" + name + ".xml"; a name that is already a path
    // (it holds ".xml") is kept.
    static std::string pathFor(const std::string& name);
    // Replaces this scene with the file's; logs whether it could be read.
    bool load(const std::string& path);
    // The level "level" loads after the last page: the root's, else the first scene's.
    const std::string& endLevel() const;
    const std::string& endSpawn() const;

    std::string onend;
    std::string level;
    std::string levelspawn;
    std::vector<Scene> scenes;
    std::vector<Page> pages;
};
