#include "hud/ScoreCounter.h"

#include "HudFixture.h"
#include "hud/HUD_ScoreBox.h"
#include "hud/HUD_WeaponBox.h"
#include "math/scalar.h"
#include "scene/Text.h"

#include <cmath>
#include <cstdlib>
#include <type_traits>

using vorlik::Vorlik;

namespace {

// The score box's counter, updated by hand as the session's actor walk would.
class ScoreCounterTest : public HudFixture {
protected:
    // Sets the clock and updates the counter; returns what it shows.
    const char* showAt(uint32_t now)
    {
        Vorlik::currentTime = now;
        counter.update();
        return counter.text->text.data;
    }
    int shownAt(uint32_t now) { return std::atoi(showAt(now)); }

    HUD_ScoreBox box;
    ScoreCounter& counter = *box.counter;
};

static_assert(!std::is_default_constructible_v<ScoreCounter>, "only the HUD boxes make counters");
static_assert(!std::is_destructible_v<ScoreCounter>, "only the HUD boxes delete counters");

TEST_F(ScoreCounterTest, StartsIdleShowingAZeroFifteenPixelsHighInTheBigFont)
{
    EXPECT_EQ(counter.drawable, counter.text);
    EXPECT_EQ(counter.text->font, Resources::font_big);
    EXPECT_STREQ(counter.text->text.data, "0");
    EXPECT_EQ(counter.text->fontHeight, 15.0f);
    EXPECT_FLOAT_EQ(counter.text->size.x, 15.0f * 576 / 1024);
    EXPECT_EQ(counter.text->size.y, 15.0f);
    // Anchored by its top-left corner at its final size.
    EXPECT_FLOAT_EQ(counter.text->anchor.x, counter.text->size.x / 2);
    EXPECT_FLOAT_EQ(counter.text->anchor.y, 7.5f);
    EXPECT_TRUE(counter.prefix.empty());
    EXPECT_EQ(counter.value, 0);
    EXPECT_EQ(counter.shownFrom, 0);
    EXPECT_EQ(counter.rollStart, 0u);
    EXPECT_EQ(counter.rollEnd, 0u);
}

TEST_F(ScoreCounterTest, TheStretchTableRunsFrom450Down25AtATimeThen10And5)
{
    const uint32_t expected[ScoreCounter::kStretchCount] = {450, 425, 400, 375, 350, 325, 300, 275, 250, 225,
                                                            200, 175, 150, 125, 100, 75,  50,  25,  10,  5};
    for (int i = 0; i < ScoreCounter::kStretchCount; ++i) EXPECT_EQ(ScoreCounter::tadd[i], expected[i]) << i;
}

TEST_F(ScoreCounterTest, AGainWhileIdleRollsForExactly500msFromTheOldToTheNewValue)
{
    counter.addValue(40);
    showAt(11000); // long after: idle again
    ASSERT_EQ(counter.rollEnd, 0u);

    counter.addValue(100);
    EXPECT_EQ(counter.rollStart, 11000u);
    EXPECT_EQ(counter.rollEnd, 11500u);
    EXPECT_EQ(counter.shownFrom, 40);
    EXPECT_EQ(counter.value, 140);
    EXPECT_EQ(ScoreCounter::taddp, 0);
    EXPECT_EQ(shownAt(11000), 40);
    EXPECT_EQ(shownAt(11250), 40 + static_cast<int>(100 * std::sin(vorlik::kPiDouble / 4)));
    EXPECT_EQ(shownAt(11499), 139);
    EXPECT_EQ(shownAt(11500), 140);
    EXPECT_EQ(counter.rollEnd, 11500u); // still rolling at its last millisecond
    EXPECT_EQ(shownAt(11501), 140);
    EXPECT_EQ(counter.rollEnd, 0u); // the first update after the end makes it idle
    EXPECT_EQ(counter.rollStart, 0u);
    EXPECT_EQ(counter.shownFrom, 140);
}

TEST_F(ScoreCounterTest, TenQuickKillsStretchTheRollBy450Then425AndSoOn)
{
    for (int kill = 0; kill < 10; ++kill) {
        Vorlik::currentTime = 10000 + 20 * kill;
        counter.addValue(100);
    }
    EXPECT_EQ(counter.rollStart, 10000u);
    EXPECT_EQ(counter.rollEnd, 10000u + 500 + 450 + 425 + 400 + 375 + 350 + 325 + 300 + 275 + 250);
    EXPECT_EQ(ScoreCounter::taddp, 9);
    EXPECT_EQ(counter.value, 1000);
    EXPECT_EQ(counter.shownFrom, 0);
}

TEST_F(ScoreCounterTest, TheStretchIndexNeverPasses19SoLaterGainsAdd5msEach)
{
    counter.addValue(1);
    uint32_t expectedEnd = 10500;
    for (int gain = 0; gain < 30; ++gain) {
        counter.addValue(1);
        expectedEnd += ScoreCounter::tadd[gain < 19 ? gain : 19];
        EXPECT_LE(ScoreCounter::taddp, 19);
    }
    EXPECT_EQ(ScoreCounter::taddp, 19);
    EXPECT_EQ(counter.rollEnd, expectedEnd);
    EXPECT_EQ(ScoreCounter::tadd[ScoreCounter::taddp], 5u);
}

TEST_F(ScoreCounterTest, TheStretchIndexIsSharedByEveryCounter)
{
    HUD_WeaponBox weapons;
    ScoreCounter& other = *weapons.counters[HUD_WeaponBox::kReserveCounter];
    counter.addValue(10); // starts a roll, index 0
    counter.addValue(10); // stretches by 450, index 1
    counter.addValue(10); // stretches by 425, index 2
    ASSERT_EQ(ScoreCounter::taddp, 2);

    other.addValue(5); // idle: resets the shared index
    EXPECT_EQ(ScoreCounter::taddp, 0);
    counter.addValue(10); // the score's roll goes on with the index the other left: 450
    EXPECT_EQ(counter.rollEnd, 10000u + 500 + 450 + 425 + 450);
    other.addValue(5); // and the other goes on from there: 425
    EXPECT_EQ(other.rollEnd, 10000u + 500 + 425);
    EXPECT_EQ(ScoreCounter::taddp, 2);
}

TEST_F(ScoreCounterTest, AGainInTheMillisecondTheRollEndsStartsANewRoll)
{
    counter.addValue(10);
    counter.addValue(10);
    Vorlik::currentTime = counter.rollEnd;
    counter.addValue(10);
    EXPECT_EQ(counter.rollStart, 10950u);
    EXPECT_EQ(counter.rollEnd, 11450u);
    EXPECT_EQ(counter.shownFrom, 20);
    EXPECT_EQ(ScoreCounter::taddp, 0);
}

TEST_F(ScoreCounterTest, TheRollIsASineEaseOutTruncatedTowardZero)
{
    EXPECT_EQ(ScoreCounter::rolledValue(0, 1000, 0, 500, 0), 0);
    EXPECT_EQ(ScoreCounter::rolledValue(0, 1000, 0, 500, 125), 382); // sin(pi/8) = 0.3827
    EXPECT_EQ(ScoreCounter::rolledValue(0, 1000, 0, 500, 250), 707); // sin(pi/4) = 0.7071
    EXPECT_EQ(ScoreCounter::rolledValue(0, 1000, 0, 500, 500), 1000);
    EXPECT_EQ(ScoreCounter::rolledValue(0, 7, 0, 500, 250), 4);    // 4.95
    EXPECT_EQ(ScoreCounter::rolledValue(10, 0, 0, 500, 250), 2);   // 2.93, falling
    EXPECT_EQ(ScoreCounter::rolledValue(0, -10, 0, 500, 250), -7); // -7.07, toward zero
    // The fraction is taken in floating point, not in whole milliseconds.
    EXPECT_EQ(ScoreCounter::rolledValue(100, 200, 4000, 4950, 4475), 100 + 70);
}

TEST_F(ScoreCounterTest, TheShownNumberNeverOvershootsTheTarget)
{
    const int gains[] = {170, 3, 95, 1200, 7, 40, 1, 999, 60, 15};
    uint32_t now = 10000;
    for (int gain : gains) {
        Vorlik::currentTime = now;
        counter.addValue(gain);
        for (uint32_t step = 0; step < 37; ++step, ++now) {
            const int shown = shownAt(now);
            EXPECT_LE(shown, counter.value) << now;
            EXPECT_GE(shown, counter.shownFrom) << now;
        }
    }
    while (counter.rollEnd != 0) {
        EXPECT_LE(shownAt(now), counter.value) << now;
        ++now;
    }
    EXPECT_EQ(shownAt(now), 2590);
}

TEST_F(ScoreCounterTest, ALateSmallGainStretchesTheRollAndSetsTheShownNumberBack)
{
    counter.addValue(1000);
    const int before = shownAt(10450); // nine tenths of the roll
    EXPECT_EQ(before, 987);
    counter.addValue(1); // the roll now ends at 10950 and still rolls from 0
    const int after = shownAt(10450);
    EXPECT_LT(after, before);
    EXPECT_EQ(after, static_cast<int>(1001 * std::sin(450.0 / 950.0 * vorlik::kPiDouble / 2)));
    EXPECT_LE(after, counter.value);
}

TEST_F(ScoreCounterTest, TheTextIsThePrefixAndThePlainDecimalNumber)
{
    counter.prefix = "Score: ";
    counter.addValue(1234567);
    EXPECT_STREQ(showAt(20000), "Score: 1234567");
    counter.prefix = "";
    EXPECT_STREQ(showAt(20001), "1234567");
}

TEST_F(ScoreCounterTest, TheTextStaysLeftAlignedAtTheCounterAsItGrows)
{
    counter.position = vorlik::vec2(15, 12);
    counter.addValue(123456);
    showAt(20000);
    const Text& text = *counter.text;
    EXPECT_EQ(text.position.x, 15.0f);
    EXPECT_EQ(text.position.y, 12.0f);
    EXPECT_EQ(text.position.z, 0.0f);
    EXPECT_FLOAT_EQ(text.size.x, 6 * 15.0f * 576 / 1024);
    EXPECT_FLOAT_EQ(text.anchor.x, text.size.x / 2); // left edge on the position
    EXPECT_FLOAT_EQ(text.anchor.y, text.size.y / 2); // top edge on the position
}

TEST_F(ScoreCounterTest, ItsPositionIsWrappedIntoTheWorldLikeAnyActors)
{
    counter.position = vorlik::vec2(15, 12);
    showAt(20000);
    EXPECT_EQ(counter.position.x, 15.0f);
    counter.position = vorlik::vec2(-1, 12);
    showAt(20001);
    EXPECT_EQ(counter.position.x, 4095.0f);
    EXPECT_EQ(counter.text->position.x, 4095.0f);
}

} // namespace
