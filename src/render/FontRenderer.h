#pragma once
// Draws and measures text for the HUD, GUI, console and debug labels. This
// base class is the crude fallback: fixed 16-pixel cells cut from the bitmap
// "data/fonts/font.tga". ImageFontRenderer, the one the game uses, draws the
// proper bitmap fonts. Text is drawn in the colour the caller set, with the
// pen starting at (x, y) on the baseline, in 2D window pixels.
#include <string>

class IRenderer;

class FontRenderer {
public:
    static const char* const fallbackBitmap;

    virtual ~FontRenderer() = default;

    // Loads what drawing needs; the renderer must have been set. False when text cannot be drawn.
    virtual bool init();
    // Forgets every loaded font (nothing to forget in the fallback).
    virtual void clearFonts() {}
    // Not owned. A null renderer is logged and draws nothing.
    virtual void setRenderer(IRenderer* renderer);
    // Makes the font of that family and point size current; false (current kept) when none matches.
    virtual bool selectFont(const std::string& name, int size);
    virtual void drawText(float x, float y, const std::string& text);
    virtual void drawText(float x, float y, float z, const std::string& text);
    // Black copy one pixel down-right, then white text on top.
    virtual void drawTextShadowed(float x, float y, const std::string& text);
    virtual void drawTextShadowed(float x, float y, float z, const std::string& text);
    // Unscaled width in pixels, including the spacing after each glyph.
    virtual float textWidth(const std::string& text);
    virtual float textHeight(const std::string& text);
    // Left x that centres text in a box of the given width starting at x.
    virtual float centredX(float x, float width, const std::string& text);
    // Baseline y that centres text in a box of the given height whose top is y.
    virtual float centredY(float y, float height, const std::string& text);
    virtual void setSnapToPixels(bool snap) { snapToPixels = snap; }
    virtual void setScale(float s) { scale = s; }
    virtual float getScale() const { return scale; }

    IRenderer* getRenderer() const { return renderer; }

protected:
    // Emits one textured quad; (s, t) is the top-left texture coordinate, (s2, t2) the bottom-right.
    // Overridden by tests to record glyph placement without a GL context.
    virtual void emitGlyph(float left, float bottom, float right, float top, float z, float s,
                           float t, float s2, float t2);

    IRenderer* renderer = nullptr;
    std::string fallbackName = fallbackBitmap;
    int fallbackId = -1;
    bool snapToPixels = true;
    float scale = 1.0f;
};
