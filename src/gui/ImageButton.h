#pragma once
// A button drawn as one of three images: normal, under the cursor, and held
// down. Frames use it for their close button, cut scenes for paging.
#include <string>

#include "gui/Button.h"

class ImageButton : public Button {
public:
    // The image over the box for the current state.
    void draw(IRenderer& renderer) override;

    void setImages(const std::string& normal, const std::string& hover, const std::string& pressedImage);
    const std::string& currentImage() const;

private:
    std::string normalImage = "data/gui/test.png";
    std::string hoverImage = "data/gui/testover.png";
    std::string pressedImage = "data/gui/testclicked.png";
};
