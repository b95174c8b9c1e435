#include "gui/ListBoxItem.h"

#include "gui/ListBox.h"
#include "gui/ListBoxColumn.h"
#include "render/FontRenderer.h"
#include "render/TextFit.h"
#include "render/IRenderer.h"

ListBoxItem::ListBoxItem(std::string t) : text(std::move(t)) { setSize(100.0f, rowHeight); }

void ListBoxItem::mouseDown(float px, float py, int button)
{
    if ((button == 4 || button == 5) && list) {
        list->scrollWheel(button);
        return;
    }
    GUIComponent::mouseDown(px, py, button);
}

void ListBoxItem::clicked(float, float, int button)
{
    if (button == 1 && list)
        list->choose(this);
}

void ListBoxItem::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    if (selected || hovered) {
        renderer.setTexturing(false);
        renderer.setBlending(true);
        if (selected)
            renderer.setColour(64.0f, 131.0f, 255.0f, 200.0f);
        else
            renderer.setColour(255.0f, 255.0f, 255.0f, 40.0f);
        renderer.drawQuad(x, y, 0.0f, width, height);
    }
    if (FontRenderer* font = textFont(renderer, "vera", 12)) {
        renderer.setColour(255.0f, 255.0f, 255.0f, 255.0f);
        const float baseline = font->centredY(y, height, text);
        // Tab-separated cells line up under the list's columns.
        float cellX = x + 4.0f;
        size_t start = 0;
        size_t column = 0;
        while (true) {
            const size_t tab = text.find('\t', start);
            const bool known = list && column < list->getColumns().size();
            const float cellWidth = known ? static_cast<float>(list->getColumns()[column]->width) : 80.0f;
            // A cell ends at the next column, the last one at the row's edge.
            const float room = (tab == std::string::npos ? x + width - 4.0f : cellX + cellWidth - 6.0f) - cellX;
            font->drawText(cellX, baseline, TextFit::elide(*font, text.substr(start, tab - start), room));
            if (tab == std::string::npos)
                break;
            start = tab + 1;
            cellX += cellWidth;
            ++column;
        }
    }
    drawChildren(renderer);
}
