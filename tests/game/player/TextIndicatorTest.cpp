#include "player/TextIndicator.h"

#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "scene/Text.h"

#include <gtest/gtest.h>

using vorlik::Vorlik;

namespace {

constexpr float kWhite[4] = {1, 1, 1, 1};

// A session for the indicators to leave when they end, and a clock set by hand.
class TextIndicatorTest : public ::testing::Test {
protected:
    TextIndicatorTest()
    {
        g_game = &session;
        Vorlik::currentTime = 10000;
        Vorlik::sync = 0.016f;
    }
    ~TextIndicatorTest() override
    {
        delete &session; // while g_game still names it, as in the game
        g_game = nullptr;
    }

    TextIndicator* make()
    {
        auto* indicator = new TextIndicator(nullptr, "hello", 16.0f, kWhite, ANCHOR_CENTRE);
        indicator->position = vorlik::vec2(640, 288);
        session.actors.push(indicator);
        return indicator;
    }

    GameSession& session = *new GameSession;
};

TEST_F(TextIndicatorTest, IsBornNowWithItsTextAsItsDrawable)
{
    TextIndicator* indicator = make();
    EXPECT_EQ(indicator->startTime, 10000u);
    EXPECT_EQ(indicator->drawable, indicator->text);
    EXPECT_EQ(indicator->text->fontHeight, 16.0f);
    EXPECT_EQ(TextIndicator::lifeTime, 2750u);
    EXPECT_EQ(TextIndicator::speed, 35.0f);
}

TEST_F(TextIndicatorTest, HalfwayThroughItsLifeItsAlphaIsOneHalf)
{
    TextIndicator* indicator = make();
    Vorlik::currentTime = 10000 + 1375;
    indicator->update();
    EXPECT_FLOAT_EQ(indicator->text->color[3], 0.5f);
}

TEST_F(TextIndicatorTest, AtTheEndOfItsLifeItsAlphaIsZeroAndItGoesOnTheNextFrame)
{
    TextIndicator* indicator = make();
    Vorlik::currentTime = 10000 + 2750;
    indicator->update();
    EXPECT_FLOAT_EQ(indicator->text->color[3], 0.0f);
    ASSERT_EQ(session.actors.count, 1u);
    Vorlik::currentTime += 1;
    indicator->update(); // deletes itself
    EXPECT_EQ(session.actors.count, 0u);
}

TEST_F(TextIndicatorTest, RisesThirtyFiveUnitsASecondSoAboutNinetySixOverItsLife)
{
    TextIndicator* indicator = make();
    Vorlik::sync = 2.75f;
    indicator->update();
    EXPECT_FLOAT_EQ(indicator->position.y, 288 - 96.25f);
    EXPECT_FLOAT_EQ(indicator->text->position.y, 288 - 96.25f);
}

TEST_F(TextIndicatorTest, ItsTextTakesItsPositionScaleAndRotation)
{
    TextIndicator* indicator = make();
    indicator->scale = 1.5f;
    indicator->rotation = 20;
    Vorlik::sync = 0;
    indicator->update();
    EXPECT_EQ(indicator->text->position.x, 640);
    EXPECT_EQ(indicator->text->scale, 1.5f);
    EXPECT_EQ(indicator->text->rotation, 20);
}

TEST_F(TextIndicatorTest, APositionAboveTheTopWrapsByTheWorldsHeightEvenOnTheHud)
{
    TextIndicator* indicator = make();
    indicator->position = vorlik::vec2(640, 1);
    Vorlik::sync = 1;
    indicator->update();
    EXPECT_FLOAT_EQ(indicator->position.y, 4096 - 34);
}

TEST_F(TextIndicatorTest, TheAnchorIsMeasuredFromTheFinalTextAndHeight)
{
    TextIndicator indicator(nullptr, "abc", 20.0f, kWhite, ANCHOR_TOP_LEFT);
    EXPECT_EQ(indicator.text->size.y, 20.0f);
    EXPECT_EQ(indicator.text->anchor.y, 10.0f);
}

} // namespace
