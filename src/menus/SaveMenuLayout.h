#pragma once
// The layout the Load Game and Save Game screens share: the save list on
// the left under its column headings with the screen's controls below it,
// the thumbnail on the right with two lines about the save under it, and
// the question panel over the whole body. Positions count from the frame's top-left.
#include <memory>
#include <string>

class ConfirmPanel;
class GUIComponent;
class Picture;
class SaveListBox;

namespace SaveMenuLayout {
constexpr float frameWidth = 610.0f;
// Fits between the logo and the task bar at 640 x 480.
constexpr float frameHeight = 286.0f;
constexpr float margin = 15.0f;
constexpr float headingY = 36.0f;
constexpr float listY = 54.0f;
// The thumbnail as large as the frame allows, the list filling the rest.
constexpr float pictureWidth = 256.0f;
constexpr float pictureHeight = 192.0f;
constexpr float pictureX = frameWidth - margin - pictureWidth;
constexpr float pictureY = 36.0f;
constexpr float listWidth = pictureX - 10.0f - margin;
constexpr float captionY = pictureY + pictureHeight + 4.0f;
constexpr float lineHeight = 16.0f;
constexpr float detailY = captionY + lineHeight + 1.0f;
// The bottom row of the list's column.
constexpr float buttonY = 248.0f;
constexpr float buttonWidth = 107.0f;
constexpr float buttonHeight = 30.0f;

// The headings over the list's columns.
void addHeadings(GUIComponent& frame);
std::unique_ptr<SaveListBox> makeList(float height);
std::unique_ptr<Picture> makePicture(const std::string& image);
std::unique_ptr<ConfirmPanel> makeConfirm(GUIComponent& frame);
// saves/<name>.png read afresh (a save written again has a new picture), or
// the fallback when there is none.
std::string freshThumbnail(const std::string& name, const std::string& fallback);
}
