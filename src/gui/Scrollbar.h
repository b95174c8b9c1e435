#pragma once
// The vertical slider beside lists and text areas: the minimum at the top,
// the maximum at the bottom.
#include "gui/Slider.h"

class Scrollbar : public Slider {
public:
    Scrollbar();
};
