#pragma once
// Fitting text into a box: widths as drawn at the font's current scale,
// wrapping at blanks and cutting with "..." where a line cannot wrap.
#include <functional>
#include <string>
#include <vector>

class FontRenderer;

namespace TextFit {
// Width in window pixels as drawText would lay the text out at the current scale.
float drawnWidth(FontRenderer& font, const std::string& text);
// Lines no wider than maxWidth by `width`, broken at "\n" and at blanks; a
// word wider than a line is broken between characters. Never empty.
std::vector<std::string> wrapMeasured(const std::string& text, float maxWidth,
                                      const std::function<float(const std::string&)>& width);
// wrapMeasured with widths as drawn at the font's current scale.
std::vector<std::string> wrap(FontRenderer& font, const std::string& text, float maxWidth);
// The text itself when it fits, else its longest head that fits with "...".
std::string elide(FontRenderer& font, const std::string& text, float maxWidth);
// The largest scale, at most `preferred` and at least `smallest`, at which
// the text fits maxWidth (the font's scale is left as it was).
float fittingScale(FontRenderer& font, const std::string& text, float maxWidth, float preferred,
                   float smallest);
}
