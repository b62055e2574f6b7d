// The score panel in the top-left corner of the HUD: the panel picture at half size and the
// ScoreCounter that shows the score. It draws as a plain Group. The box owns the panel and
// the counter; the score text itself is drawn by g_hud, not inside the box.
#pragma once

#include "scene/Group.h"

class ScoreCounter;
class Sprite;

class HUD_ScoreBox : public Group {
public:
    static constexpr float kX = 100.0f; // pixels: the panel's centre, so its corner is the window's
    static constexpr float kY = 30.0f;

    Sprite* panel;         // Resources::hud_score_tex at its own size, scale 0.5; owned
    ScoreCounter* counter; // the score; owned; null once something deleted it as an actor

    // Builds the panel and the counter (a "0") and places the box. When a game starts the
    // session then: adds the box to g_hud (score box, weapon box, radar box, reticle); appends
    // counter to g_game->actors and keeps it as scoreCounter (never deleting it); puts the
    // counter at (15, 12); and adds counter->text to g_hud after the boxes, the reticle and the
    // player, so that the number is drawn over its panel rather than under it.
    HUD_ScoreBox();
    // Deletes the panel, then the counter (which leaves g_game's actors and g_hud).
    ~HUD_ScoreBox() override;
};
