#include "gui/TextArea.h"

#include <cmath>

#include "gui/Scrollbar.h"
#include "gui/TextLayout.h"

TextArea::TextArea()
{
    scrollbar = add(std::make_unique<Scrollbar>());
    scrollbar->setListener(this);
    setBounds(x, y, width, height);
}

TextArea::~TextArea() { scrollbar->setListener(nullptr); }

float TextArea::textWidth() const { return width - scrollbarWidth - 2.0f * TextLayout::padding; }

void TextArea::setBounds(float newX, float newY, float w, float h)
{
    TextView::setBounds(newX, newY, w, h);
    if (scrollbar)
        scrollbar->setBounds(x + w - scrollbarWidth, y, scrollbarWidth, h);
    scrollTo(firstLine);
}

void TextArea::scrollTo(int first)
{
    TextView::scrollTo(first);
    if (!scrollbar)
        return;
    scrollbar->setNotify(false);
    scrollbar->setRange(0.0f, static_cast<float>(getMaxFirstLine()));
    scrollbar->setValue(static_cast<float>(firstLine));
    scrollbar->setNotify(true);
}

void TextArea::valueChanged(GUIComponent*, float value)
{
    TextView::scrollTo(static_cast<int>(std::lround(value)));
}
