#include "player/TextIndicator.h"

#include "GameScenesTest.h"
#include "base/Resources.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
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

// The real scenes, a session, and a medium font of a known size (a 16 x 16 grid of 32-pixel
// cells), so that the notices' place, scene and size can be read.
class NoticeTest : public GameScenesTest {
protected:
    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        Vorlik::currentTime = 20000;
        g_game = new GameSession();
        font = new vorlik::Font(new vorlik::Image(512, 512));
        savedFont = Resources::font_medium;
        Resources::font_medium = font;
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        Resources::font_medium = savedFont;
        GameScenesTest::TearDown(); // the session deletes the notices, then the font may go
        delete font;
    }

    vorlik::Font* font = nullptr;
    vorlik::Font* savedFont = nullptr;
};

constexpr float kGreen[4] = {0.1f, 1.0f, 0.15f, 1.0f};

TEST_F(NoticeTest, AWorldNoticeFloatsInTheWorldAtItsPlaceCentredAtItsOwnSize)
{
    TextIndicator* notice = TextIndicator::worldNotice("Energy restored", kGreen, vorlik::vec2(300, 465));
    Text* text = notice->text;
    EXPECT_EQ(text->parent, static_cast<Container*>(g_world));
    EXPECT_EQ(g_hud->count, 0u);
    ASSERT_EQ(g_game->actors.count, 1u);
    EXPECT_EQ(g_game->actors[0], notice);
    EXPECT_STREQ(text->text.data, "Energy restored");
    EXPECT_EQ(text->font, font);
    EXPECT_EQ(text->fontHeight, 16.0f);
    EXPECT_EQ(text->size.y, 16.0f);
    EXPECT_EQ(text->anchor, vorlik::vec3(0, 0, 0)); // centred, though the text is wide
    EXPECT_GT(text->size.x, 100.0f);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(text->color[i], kGreen[i]) << i;
    EXPECT_EQ(notice->scale, 1.0f);
    EXPECT_EQ(notice->startTime, 20000u);
    // Placed before its first update, so the first drawn frame already shows it there.
    EXPECT_EQ(notice->position, vorlik::vec2(300, 465));
    EXPECT_EQ(text->position, vorlik::vec3(300, 465, 0));
    EXPECT_EQ(text->scale, 1.0f);
}

TEST_F(NoticeTest, AWorldNoticeOutsideTheWorldIsWrappedIntoItBeforeItIsDrawn)
{
    TextIndicator* notice = TextIndicator::worldNotice("Speed boost", kGreen, vorlik::vec2(100, -20));
    EXPECT_EQ(notice->text->position, vorlik::vec3(100, 4096 - 20, 0));
}

TEST_F(NoticeTest, AHudNoticeIsWhiteAndHalfAsLargeAgainOnTheHud)
{
    TextIndicator* notice = TextIndicator::hudNotice("Wave 2 incoming");
    EXPECT_EQ(notice->text->parent, static_cast<Container*>(g_hud));
    EXPECT_EQ(g_world->count, 0u);
    EXPECT_EQ(notice->scale, 1.5f);
    EXPECT_EQ(notice->text->fontHeight, 16.0f);
    for (int c = 0; c < 4; ++c) EXPECT_EQ(notice->text->color[c], 1.0f) << "channel " << c;
    EXPECT_EQ(notice->text->font, Resources::font_medium);
    EXPECT_EQ(notice->text->anchor, vorlik::vec3(0, 0, 0)) << "centred on its position";
    EXPECT_EQ(notice->text->position, vorlik::vec3(640, 288, 0));
    EXPECT_EQ(g_game->actors[0], notice);
}

} // namespace
