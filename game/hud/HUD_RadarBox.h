// The radar panel in the bottom-right corner of the HUD: the dials picture at half size and
// nothing else. The game has no radar content (no blips, no mask), so the dials are all it
// shows. It draws as a plain Group and owns its panel.
#pragma once

#include "scene/Group.h"

class Sprite;

class HUD_RadarBox : public Group {
public:
    // pixels from the window's right and bottom edges to the panel's centre
    static constexpr float kCornerGap = 130.0f;

    Sprite* panel; // Resources::hud_radar_dials_tex at its own size, scale 0.5; owned

    // Builds the panel and places the box at (window width - 130, window height - 130). The
    // session then adds it to g_hud after the weapon box.
    HUD_RadarBox();
    // Deletes the panel.
    ~HUD_RadarBox() override;
};
