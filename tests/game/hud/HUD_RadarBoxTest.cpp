#include "hud/HUD_RadarBox.h"

#include "HudFixture.h"

namespace {

using HUD_RadarBoxTest = HudFixture;

TEST_F(HUD_RadarBoxTest, HoldsOnlyTheDialsPanelAtHalfSize)
{
    HUD_RadarBox box;
    expectPanel(box, box.panel, Resources::hud_radar_dials_tex);
    EXPECT_EQ(box.childCount(), 1u);
}

TEST_F(HUD_RadarBoxTest, SitsOneHundredAndThirtyPixelsFromTheWindowsRightAndBottom)
{
    HUD_RadarBox box;
    expectPlacedAt(box, 1150, 590);
}

} // namespace
