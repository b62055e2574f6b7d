#include "hud/HUD_ScoreBox.h"

#include "base/Resources.h"
#include "hud/HudPanel.h"
#include "hud/ScoreCounter.h"
#include "scene/Sprite.h"

HUD_ScoreBox::HUD_ScoreBox()
    : panel(makeHudPanel(Resources::hud_score_tex)), counter(new ScoreCounter(&counter))
{
    add(panel);
    // Anchored by the top-left corner while the box's size is still 0 (its bounds are first
    // measured when the HUD is drawn), so the anchor is (0, 0): the position is the panel's
    // centre, which puts the panel's top-left corner on the window's.
    setAnchor(ANCHOR_TOP_LEFT);
    position = vorlik::vec3(kX, kY, 0.0f);
}

HUD_ScoreBox::~HUD_ScoreBox()
{
    delete panel;
    delete counter;
}
