// The weapon panel in the bottom-left corner of the HUD: the dials picture at half size with
// three ScoreCounters on it, for the plasma gun, the laser and the reserve. It draws as a plain
// Group. Nothing ever updates these counters, so each keeps showing "0"; the third is the
// session's reserveCounter. The box owns the panel and the counters.
#pragma once

#include "scene/Group.h"

class ScoreCounter;
class Sprite;

class HUD_WeaponBox : public Group {
public:
    static constexpr int kCounterCount = 3;
    static constexpr int kReserveCounter = 2;  // the session's reserveCounter
    static constexpr float kX = 100.0f;        // pixels: the panel's centre
    static constexpr float kBottomGap = 50.0f; // pixels from the window's bottom up to the panel's centre

    Sprite* panel;                         // Resources::hud_power_dials_tex at its own size, scale 0.5; owned
    ScoreCounter* counters[kCounterCount]; // owned; their texts are children of the box, over the panel

    // Builds the panel and the three counters (each a "0") and places the box at (100, window
    // height - 50). The session then adds the box to g_hud after the score box, and keeps
    // counters[kReserveCounter] as reserveCounter, never deleting it. The counters are not for
    // the session's actors list: the box places their texts itself.
    HUD_WeaponBox();
    // Deletes the panel, then the counters.
    ~HUD_WeaponBox() override;
};
