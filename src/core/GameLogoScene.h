#pragma once
// The title card shown once at start-up: the maker's line and the game's name
// fade in on black and out again (about 6.4 seconds), then the menus appear.
// Any key or click after the first 0.3 seconds skips it.
#include "core/Cinematic.h"

class GameLogoScene : public Cinematic {
public:
    static constexpr float fadeSpeed = 80.0f;  // alpha units per second
    static constexpr const char* makerLine = "Quillmar Software Presents";
    static constexpr const char* gameName = "Brindlequay";

    // Runs the card to its end on the current Game.
    void run();
    // One frame of the card; false once it has ended.
    bool frame(Game& game);
    // Advances the fade by one frame of the given length; ends the scene after fading out.
    void updateFade(float frameSeconds);

    float textX = 0.0f;
    float rightX = 0.0f;
    float textY = 0.0f;
    float alpha = 0.0f;
    bool fadingOut = false;

private:
    void draw(Game& game);
};
