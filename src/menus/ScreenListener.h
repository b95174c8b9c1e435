#pragma once
// The base of the screens' listeners: each hears its own screen's widgets
// and calls back into that screen, which outlives it (it owns the listener).
#include "gui/ActionListener.h"

template <class Screen>
class ScreenListener : public ActionListener {
public:
    explicit ScreenListener(Screen& screen) : screen(screen) {}

protected:
    Screen& screen;
};
