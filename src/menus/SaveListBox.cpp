#include "menus/SaveListBox.h"

#include <algorithm>
#include <cmath>

#include "gui/ListBoxColumn.h"
#include "gui/ListBoxItem.h"
#include "render/FontRenderer.h"
#include "render/IRenderer.h"

namespace {
// Share of the row each column takes; the played time is short.
constexpr float columnShares[] = {0.3f, 0.18f, 0.34f};

std::string shortWritten(std::time_t when)
{
    std::tm local{};
    char text[32];
    if (!localtime_r(&when, &local) || !std::strftime(text, sizeof text, "%d %b %H:%M", &local))
        return "";
    return text;
}
}

const std::vector<std::string>& SaveListBox::headings()
{
    static const std::vector<std::string> names{"Save", "Level", "Written", "Played"};
    return names;
}

SaveListBox::SaveListBox()
{
    for (const std::string& heading : headings())
        addColumn(heading, 0);
    setName("saves");
}

void SaveListBox::setBounds(float newX, float newY, float w, float h)
{
    ListBox::setBounds(newX, newY, w, h);
    const float rowWidth = std::max(0.0f, w - scrollbarWidth);
    for (size_t i = 0; i < std::size(columnShares) && i < getColumns().size(); ++i)
        getColumns()[i]->width = static_cast<int>(std::floor(rowWidth * columnShares[i]));
}

void SaveListBox::refresh(const std::string& keepSelected)
{
    const SaveInfo* old = selectedSave();
    const std::string wanted = !keepSelected.empty() ? keepSelected : old ? old->name : std::string();
    saves = SaveInfo::listAll();
    clear();
    for (const SaveInfo& save : saves)
        addItem(rowText(save));
    for (size_t i = 0; i < saves.size(); ++i)
        if (saves[i].name == wanted) {
            select(static_cast<int>(i));
            scrollTo(static_cast<int>(i));
        }
}

const SaveInfo* SaveListBox::selectedSave() const
{
    const int i = getSelectedIndex();
    return i >= 0 && i < static_cast<int>(saves.size()) ? &saves[static_cast<size_t>(i)] : nullptr;
}

void SaveListBox::draw(IRenderer& renderer)
{
    ListBox::draw(renderer);
    if (!enabled || !saves.empty())
        return;
    if (FontRenderer* font = textFont(renderer, "vera", 12)) {
        renderer.setColour(200.0f, 200.0f, 200.0f, 255.0f);
        const float room = width - scrollbarWidth;
        // Centred on the first two rows, where a player looks first.
        const float baseline = font->centredY(y, ListBoxItem::rowHeight * 2.0f, emptyText);
        font->drawText(centredLeft(*font, emptyText, x, room), baseline, emptyText);
    }
}

std::string SaveListBox::rowText(const SaveInfo& save)
{
    // The mark first, so a long name cut short still shows it.
    std::string name = save.name;
    if (save.kind == SaveInfo::Kind::quick)
        name = "Quick save";
    else if (save.kind == SaveInfo::Kind::checkpoint)
        name = "Checkpoint: " + save.name;
    if (!save.readable)
        return name + "\t(damaged)";
    return name + "\t" + save.title + "\t" + shortWritten(save.written) + "\t" +
           SaveInfo::formatPlayTime(save.playSeconds);
}

std::string SaveListBox::captionText(const SaveInfo& save)
{
    const std::string kind = SaveInfo::kindText(save.kind);
    return save.readable ? save.name + (kind.empty() ? "" : " - " + kind) + ": " + save.title
                         : save.name + ": cannot be read";
}

std::string SaveListBox::detailText(const SaveInfo& save)
{
    if (!save.readable)
        return "";
    return SaveInfo::formatWritten(save.written) + ", played " + SaveInfo::formatPlayTime(save.playSeconds);
}
