#include "hud/ScoreCounter.h"

#include "base/Resources.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/GameSession.h"
#include "scene/Text.h"

#include <algorithm>

using vorlik::Vorlik;

int ScoreCounter::taddp = 0;

ScoreCounter::ScoreCounter(ScoreCounter** boxField)
    : text(new Text(Resources::font_big, "0")), holder(boxField)
{
    // The height is set before the text is measured again and anchored, so that the top-left
    // corner is taken from the final size.
    text->fontHeight = kFontHeight;
    text->setText("0");
    text->setAnchor(ANCHOR_TOP_LEFT);
    drawable = text;
}

ScoreCounter::~ScoreCounter()
{
    if (g_game != nullptr) removeFromList(g_game->actors, static_cast<Actor*>(this));
    if (holder != nullptr) *holder = nullptr;
    delete text;
}

void ScoreCounter::addValue(int amount)
{
    const uint32_t now = Vorlik::currentTime;
    if (rollEnd > now) {
        // The roll keeps its start and the value it rolls from, so a small gain late in a long
        // roll sets the shown number back for a moment (the fraction of the roll drops). The
        // game has always rolled like that.
        rollEnd += tadd[taddp];
        taddp = std::min(taddp + 1, kStretchCount - 1);
    } else {
        rollStart = now;
        rollEnd = now + kRollTime;
        shownFrom = value;
        taddp = 0;
    }
    value += amount;
}

int ScoreCounter::rolledValue(int from, int to, uint32_t start, uint32_t end, uint32_t now)
{
    // A float fraction: in whole milliseconds the division would give 0 for the whole roll.
    const float t = static_cast<float>(now - start) / static_cast<float>(end - start);
    return static_cast<int>(vorlik::easeOutLerp(t, static_cast<float>(from), static_cast<float>(to)));
}

void ScoreCounter::update()
{
    // The HUD position is wrapped into the world's size like any actor's; the counters sit
    // well inside 4096 x 4096, so nothing moves.
    Actor::update();
    const uint32_t now = Vorlik::currentTime;
    int shown = value;
    if (rollEnd < now) {
        rollEnd = 0;
        rollStart = 0;
        shownFrom = value;
    } else if (now < rollEnd) {
        shown = rolledValue(shownFrom, value, rollStart, rollEnd, now);
    }
    // The number goes through int, so the text is plain decimal digits.
    text->setText((prefix + vorlik::String(shown)).data);
    // Anchored again because the width changed: the number stays left-aligned.
    text->setAnchor(ANCHOR_TOP_LEFT);
}
