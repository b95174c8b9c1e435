#pragma once
// The fade in from black: opaque black that turns transparent over its
// duration. Used after level requests and on every sky switch.
#include "render/OverlayEffect.h"

class SimpleFadeOverlay : public OverlayEffect {
public:
    explicit SimpleFadeOverlay(float seconds = 1.0f);
};
