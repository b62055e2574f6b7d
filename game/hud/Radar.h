// A radar display for the radar box: declared, never made. The game shows no radar content,
// so this node has no state and draws nothing; the radar box shows only its dials.
#pragma once

#include "scene/Drawable.h"

class Radar : public Drawable {
public:
    Radar();
    ~Radar() override;

    // Draws nothing.
    void draw(const SceneState& state) override;
};
