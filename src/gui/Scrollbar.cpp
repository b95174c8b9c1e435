#include "gui/Scrollbar.h"

Scrollbar::Scrollbar()
{
    vertical = true;
    grabberImage = "data/gui/grabber.png";
    setBounds(64.0f, 364.0f, grabberSize, 100.0f);
}
