#include "gui/ListBox.h"

#include <algorithm>

#include "gui/ListBoxColumn.h"
#include "gui/ListBoxItem.h"
#include "gui/ListBoxItemContainer.h"
#include "gui/Scrollbar.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

ListBox::ListBox()
{
    focusable = true;
    container = add(std::make_unique<ListBoxItemContainer>());
    scrollbar = add(std::make_unique<Scrollbar>());
    scrollbar->setRange(0.0f, 0.0f);
    scrollbar->setStep(ListBoxItem::rowHeight);
    scrollbar->setListener(this);
    setBounds(64.0f, 364.0f, 160.0f, 100.0f);
}

ListBox::~ListBox()
{
    // The scroll bar dies with the children; it must not call back first.
    scrollbar->setListener(nullptr);
}

float ListBox::overflow() const { return std::max(0.0f, container->getHeight() - height); }

void ListBox::setBounds(float newX, float newY, float w, float h)
{
    GUIComponent::setBounds(newX, newY, w, h);
    scrollbar->setBounds(x + w - scrollbarWidth, y, scrollbarWidth, h);
    layoutItems();
}

void ListBox::layoutItems()
{
    const float rowWidth = std::max(0.0f, width - scrollbarWidth);
    container->setSize(rowWidth, ListBoxItem::rowHeight * static_cast<float>(items.size()));
    scrollbar->setRange(0.0f, overflow());
    followScrollbar();
    for (size_t i = 0; i < items.size(); ++i)
        items[i]->setBounds(container->getX(), container->getY() - ListBoxItem::rowHeight * static_cast<float>(i),
                            rowWidth, ListBoxItem::rowHeight);
}

void ListBox::followScrollbar()
{
    // The strip's top never drops below the window's top and its bottom
    // never rises above the window's bottom.
    const float offset = std::clamp(scrollbar->getValue(), 0.0f, overflow());
    container->setPosition(x, y + offset);
}

void ListBox::valueChanged(GUIComponent*, float) { followScrollbar(); }

GUIComponent* ListBox::componentAt(float px, float py)
{
    if (!enabled || !contains(px, py))
        return nullptr;
    return GUIComponent::componentAt(px, py);
}

void ListBox::mouseDown(float px, float py, int button)
{
    if (button == 4 || button == 5) {
        scrollWheel(button);
        return;
    }
    GUIComponent::mouseDown(px, py, button);
}

void ListBox::scrollWheel(int button) { scrollbar->mouseDown(scrollbar->getX(), scrollbar->getY(), button); }

void ListBox::scrollTo(int index)
{
    if (index < 0 || index >= getItemCount())
        return;
    const float rowTop = ListBoxItem::rowHeight * static_cast<float>(index);
    const float offset = scrollbar->getValue();
    if (rowTop < offset)
        scrollbar->setValue(rowTop);
    else if (rowTop + ListBoxItem::rowHeight > offset + height)
        scrollbar->setValue(rowTop + ListBoxItem::rowHeight - height);
}

void ListBox::keyDown(int symbol, int character, const std::string& keyName)
{
    const int count = getItemCount();
    const int current = getSelectedIndex();
    int next = -2;
    if (keyName == "down")
        next = std::min(current + 1, count - 1);
    else if (keyName == "up")
        next = current < 0 ? 0 : std::max(current - 1, 0);
    else if (keyName == "home")
        next = 0;
    else if (keyName == "end")
        next = count - 1;
    if (next == -2) {
        GUIComponent::keyDown(symbol, character, keyName);
        return;
    }
    if (count > 0 && next != current)
        choose(items[static_cast<size_t>(next)]);
}

ListBoxItem* ListBox::addItem(const std::string& text) { return addItem(std::make_unique<ListBoxItem>(text)); }

ListBoxItem* ListBox::addItem(std::unique_ptr<ListBoxItem> item)
{
    if (!item)
        return nullptr;
    item->setList(this);
    ListBoxItem* raw = container->add(std::move(item));
    items.push_back(raw);
    layoutItems();
    return raw;
}

void ListBox::clear()
{
    for (ListBoxItem* item : items)
        container->removeChild(item, true);
    items.clear();
    container->setSelected(nullptr);
    scrollbar->setValue(0.0f);
    layoutItems();
}

void ListBox::removeItem(int index)
{
    if (index < 0 || index >= getItemCount())
        return;
    ListBoxItem* item = items[static_cast<size_t>(index)];
    if (container->getSelected() == item)
        container->setSelected(nullptr);
    items.erase(items.begin() + index);
    container->removeChild(item, true);
    layoutItems();
}

int ListBox::getSelectedIndex() const
{
    auto it = std::find(items.begin(), items.end(), container->getSelected());
    return it == items.end() ? -1 : static_cast<int>(it - items.begin());
}

void ListBox::select(int index)
{
    if (ListBoxItem* old = container->getSelected())
        old->setSelected(false);
    ListBoxItem* item = getItem(index);
    container->setSelected(item);
    if (item)
        item->setSelected(true);
}

ListBoxItem* ListBox::getSelectedItem() const { return container->getSelected(); }

ListBoxItem* ListBox::getItem(int index) const
{
    return index >= 0 && index < getItemCount() ? items[static_cast<size_t>(index)] : nullptr;
}

void ListBox::addColumn(const std::string& columnName, int columnWidth)
{
    addColumnObject(std::make_unique<ListBoxColumn>(columnName, columnWidth));
}

void ListBox::addColumnObject(std::unique_ptr<ListBoxColumn> column)
{
    if (column)
        columns.push_back(std::move(column));
}

void ListBox::fireSelectionChanged() { fireAction("selchange", this); }

void ListBox::choose(ListBoxItem* item)
{
    auto it = std::find(items.begin(), items.end(), item);
    if (it == items.end())
        return;
    const int index = static_cast<int>(it - items.begin());
    playSound("data/sounds/gui/MouseTick.wav");
    select(index);
    scrollTo(index);
    fireSelectionChanged();
}

void ListBox::draw(IRenderer& renderer)
{
    if (!enabled)
        return;
    renderer.setTexturing(true);
    renderer.bindTexture("data/gui/bg.png");
    renderer.setColour(40.0f, 40.0f, 46.0f, 255.0f);
    renderer.drawQuad(x, y, 0.0f, width, height);
    // Rows scrolled out of the window are cut off at its edges.
    renderer.setScissorTest(true);
    renderer.setScissor(static_cast<int>(x), static_cast<int>(y - height), static_cast<int>(width),
                        static_cast<int>(height));
    container->draw(renderer);
    renderer.setScissorTest(false);
    scrollbar->draw(renderer);
    drawSunkenBevel(renderer, x, y, width, height);
}
