#include "hud/HUD_ScoreBox.h"

#include "HudFixture.h"
#include "hud/ScoreCounter.h"
#include "play/ActorLists.h"
#include "scene/Text.h"

namespace {

using HUD_ScoreBoxTest = HudFixture;

TEST_F(HUD_ScoreBoxTest, HoldsTheScorePanelAtHalfSizeAndNothingElse)
{
    HUD_ScoreBox box;
    expectPanel(box, box.panel, Resources::hud_score_tex);
    EXPECT_EQ(box.childCount(), 1u);
    // The score's text is drawn by g_hud over all the boxes, not inside this one.
    EXPECT_EQ(box.counter->text->parent, nullptr);
    EXPECT_STREQ(box.counter->text->text.data, "0");
}

TEST_F(HUD_ScoreBoxTest, SitsAt100By30WithTheAnchorTakenWhileItsSizeIsZero)
{
    HUD_ScoreBox box;
    expectPlacedAt(box, 100, 30);
    EXPECT_EQ(box.anchor.x, 0.0f);
    EXPECT_EQ(box.anchor.y, 0.0f);
    EXPECT_TRUE(box.isVisible());
}

TEST_F(HUD_ScoreBoxTest, MakesNoListEntryOfItsOwn)
{
    HUD_ScoreBox box;
    EXPECT_EQ(session.actors.count, 0u);
}

TEST_F(HUD_ScoreBoxTest, DeletingTheBoxTakesItsCounterOffTheActorsListAndItsTextOutOfTheHud)
{
    auto* box = new HUD_ScoreBox;
    Group hud; // stands in for g_hud
    session.actors.push(box->counter);
    hud.add(box->counter->text);
    delete box;
    EXPECT_EQ(session.actors.count, 0u);
    EXPECT_EQ(hud.childCount(), 0u);
}

TEST_F(HUD_ScoreBoxTest, ACounterSweptOffTheActorsListIsNotDeletedAgainByItsBox)
{
    auto* box = new HUD_ScoreBox;
    session.actors.push(box->counter);
    // The way a session may empty its list at the end: every listed actor, as an Actor.
    while (session.actors.count > 0) delete session.actors.pop();
    EXPECT_EQ(box->counter, nullptr);
    delete box; // deletes the panel only
}

} // namespace
