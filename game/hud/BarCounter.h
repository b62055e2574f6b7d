// A bar display for the HUD (a filling bar instead of a number): declared, never made. The
// game shows no bars, so this node has no state and draws nothing.
#pragma once

#include "scene/Drawable.h"

class BarCounter : public Drawable {
public:
    BarCounter();
    ~BarCounter() override;

    // Draws nothing.
    void draw(const SceneState& state) override;
};
