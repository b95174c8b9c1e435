#include "menus/SaveMenuLayout.h"

#include <fstream>

#include "core/Game.h"
#include "gui/Label.h"
#include "gui/ListBoxColumn.h"
#include "gui/Picture.h"
#include "menus/ConfirmPanel.h"
#include "menus/SaveListBox.h"
#include "render/IRenderer.h"

namespace SaveMenuLayout {
void addHeadings(GUIComponent& frame)
{
    // A list of the real width says where its columns fall.
    SaveListBox widths;
    widths.setBounds(0.0f, 0.0f, listWidth, 100.0f);
    const float rowWidth = listWidth - SaveListBox::scrollbarWidth;
    float left = 0.0f;
    for (const auto& column : widths.getColumns()) {
        const float w = column->width > 0 ? static_cast<float>(column->width) : rowWidth - left;
        auto label = std::make_unique<Label>();
        label->setBounds(margin + left, headingY, w, 16.0f);
        label->setText(column->name);
        frame.addRelative(std::move(label));
        left += w;
    }
}

std::unique_ptr<SaveListBox> makeList(float height)
{
    auto list = std::make_unique<SaveListBox>();
    list->setBounds(margin, listY, listWidth, height);
    return list;
}

std::unique_ptr<Picture> makePicture(const std::string& image)
{
    auto picture = std::make_unique<Picture>();
    picture->setBounds(pictureX, pictureY, pictureWidth, pictureHeight);
    picture->setImage(image);
    picture->setName("thumbnail");
    return picture;
}

std::unique_ptr<ConfirmPanel> makeConfirm(GUIComponent& frame)
{
    auto panel = std::make_unique<ConfirmPanel>(frame);
    // Over the whole body, below the title bar with its close button.
    panel->setBounds(0.0f, 30.0f, frameWidth, frameHeight - 30.0f);
    return panel;
}

std::string freshThumbnail(const std::string& name, const std::string& fallback)
{
    const std::string path = Game::thumbnailPath(name);
    if (Game* game = Game::current())
        if (IRenderer* renderer = game->getRenderer())
            renderer->unloadTexture(path);
    return std::ifstream(path).good() ? path : fallback;
}
}
