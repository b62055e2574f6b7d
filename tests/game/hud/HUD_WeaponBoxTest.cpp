#include "hud/HUD_WeaponBox.h"

#include "HudFixture.h"
#include "hud/ScoreCounter.h"
#include "scene/Text.h"

using vorlik::Vorlik;

namespace {

using HUD_WeaponBoxTest = HudFixture;

TEST_F(HUD_WeaponBoxTest, HoldsTheDialsPanelAtHalfSizeThenThreeZeroCountersOverIt)
{
    HUD_WeaponBox box;
    expectPanel(box, box.panel, Resources::hud_power_dials_tex);
    ASSERT_EQ(box.childCount(), 4u);
    const Drawable* node = box.first;
    for (ScoreCounter* counter : box.counters) {
        node = node->next;
        EXPECT_EQ(node, counter->text);
        EXPECT_STREQ(counter->text->text.data, "0");
        EXPECT_EQ(counter->text->fontHeight, 15.0f);
    }
}

TEST_F(HUD_WeaponBoxTest, SitsFiftyPixelsAboveTheWindowsBottom)
{
    HUD_WeaponBox box;
    expectPlacedAt(box, 100, 670);
}

TEST_F(HUD_WeaponBoxTest, PutsTheNumbersInThePlasmaDialTheLaserDialAndTheReserveWindow)
{
    HUD_WeaponBox box;
    const float expected[3][2] = {{-56, -2}, {2, -2}, {64, 4}};
    for (int i = 0; i < HUD_WeaponBox::kCounterCount; ++i) {
        EXPECT_EQ(box.counters[i]->text->position.x, expected[i][0]) << i;
        EXPECT_EQ(box.counters[i]->text->position.y, expected[i][1]) << i;
    }
    EXPECT_EQ(HUD_WeaponBox::kReserveCounter, 2);
}

TEST_F(HUD_WeaponBoxTest, ItsCountersAreNotListedSoTheyKeepShowingZero)
{
    HUD_WeaponBox box;
    EXPECT_EQ(session.actors.count, 0u);
    ScoreCounter& reserve = *box.counters[HUD_WeaponBox::kReserveCounter];
    reserve.addValue(3);
    Vorlik::currentTime += 2000;
    EXPECT_EQ(reserve.value, 3);
    EXPECT_STREQ(reserve.text->text.data, "0");
}

TEST_F(HUD_WeaponBoxTest, ACounterDeletedAsAnActorLeavesAnEmptyPlaceThatTheBoxSkips)
{
    auto* box = new HUD_WeaponBox;
    Actor* reserve = box->counters[HUD_WeaponBox::kReserveCounter];
    delete reserve;
    EXPECT_EQ(box->counters[HUD_WeaponBox::kReserveCounter], nullptr);
    EXPECT_EQ(box->childCount(), 3u); // its text went with it
    delete box;
}

} // namespace
