// A number on the HUD that rolls toward a new value instead of jumping: the score in the score
// box and the three counters of the weapon box. It is an actor so that the session's actor walk
// advances it; only a counter in the session's actors list ever changes what it shows.
// Counters belong to the HUD box that makes them: only a box creates one, and deleting the box
// deletes its counters. Not for anything outside the HUD boxes.
#pragma once

#include "core/String.h"
#include "play/Actor.h"

#include <cstdint>

class Text;

class ScoreCounter : public Actor {
public:
    static constexpr uint32_t kRollTime = 500;  // ms a roll from idle lasts
    static constexpr float kFontHeight = 15.0f; // pixels per character
    static constexpr int kStretchCount = 20;

    // ms by which each further gain during a roll stretches it: less and less for quick
    // successive gains, then 5 ms for every gain after the nineteenth.
    static constexpr uint32_t tadd[kStretchCount] = {450, 425, 400, 375, 350, 325, 300, 275, 250, 225,
                                                     200, 175, 150, 125, 100, 75,  50,  25,  10,  5};
    // The next entry of tadd. One index for every counter: a gain on one counter while another
    // is rolling goes on from where the other left it, and any gain from idle resets it to 0.
    // A class static rather than a local of addValue, so that it can be read and checked.
    static int taddp;

    vorlik::String prefix;  // put in front of the number; empty
    Text* text;             // the number in Resources::font_big, 15 pixels high; owned; the drawable
    int value = 0;          // the target
    int shownFrom = 0;      // the value the current roll started from
    uint32_t rollStart = 0; // ms; both 0 when no roll is running
    uint32_t rollEnd = 0;   // ms

    // Adds to the target. From idle a 500 ms roll starts from the old value; during a roll the
    // roll is stretched by tadd[taddp] instead (where it rolls from stays as it was).
    void addValue(int amount);

    // Wraps and copies the position like every actor, then shows prefix and the rolled number,
    // left-aligned at the position. The first update after the roll's end makes it idle.
    void update() override;

    // The number a roll shows at now: sine ease-out from from to to over rollStart..rollEnd,
    // truncated toward zero. Never past to while now is within the roll (for values that a
    // float holds exactly, below 2^24).
    static int rolledValue(int from, int to, uint32_t rollStart, uint32_t rollEnd, uint32_t now);

private:
    friend class HUD_ScoreBox;
    friend class HUD_WeaponBox;

    // A "0" at (0, 0); boxField is the box's field that keeps this counter.
    explicit ScoreCounter(ScoreCounter** boxField);
    // Private so that nobody but its box deletes a counter by its own type: the session's
    // scoreCounter and reserveCounter only look at counters. A sweep that deletes every listed
    // actor may still delete the score counter as an Actor; then it leaves the actors list and
    // clears its box's field, so the box does not delete it a second time.
    ~ScoreCounter() override;

    ScoreCounter** holder; // the box's field that keeps this counter; cleared when it goes
};
