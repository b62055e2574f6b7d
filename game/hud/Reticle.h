// The aiming mark on the HUD: a cross-hair with a pulsing glow under it, moved to the mouse
// every frame. The ship aims at the world point under the mouse on its own; the reticle only
// shows where that is. It draws as a plain Group and owns its two sprites.
#pragma once

#include "scene/Group.h"

#include <cstdint>

class Sprite;

class Reticle : public Group {
public:
    static constexpr float kMarkSize = 38.0f; // pixels, both ways
    static constexpr float kGlowSize = 40.0f; // pixels, both ways

    Sprite* reticleSprite; // Resources::reticle_tex, 38 x 38; owned; drawn first
    Sprite* reticleGlow;   // Resources::reticle_glow_tex, 40 x 40; owned; its alpha pulses

    // The session makes one when a game starts, adds it to g_hud after the three HUD boxes,
    // keeps it, calls updateReticle once a frame before the actors and deletes it at the end.
    Reticle();
    // Deletes the two sprites.
    ~Reticle() override;

    // Moves the reticle to the mouse, turned into HUD pixels through g_hud, and sets the glow's
    // alpha for the current time. Needs g_hud and the input snapshot; it depends on nothing
    // else, so it follows the mouse whatever the ship is doing.
    void updateReticle();

    // The glow's alpha byte at now (ms): sin(now x 0.005) x 64 + 128, truncated as a whole, so
    // it pulses between 64 and 191 with a period of about 1.26 s; 128 at now = 0.
    static uint8_t glowAlpha(uint32_t now);
};
