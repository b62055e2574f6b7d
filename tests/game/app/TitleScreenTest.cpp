// The title notice: its thirteen lines in the HUD, their layout on the window and their
// release when the title goes.
#include "app/TitleScreen.h"

#include "DisplayTest.h"
#include "base/Resources.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Text.h"

#include <gtest/gtest.h>
#include <cstring>
#include <unistd.h>

using vorlik::Vorlik;

namespace {

constexpr int kFontPicture = 512; // a 16 x 16 grid of 32-pixel cells: lines 32 pixels high

// A HUD and a medium font of known size, on a window the test may pretend is narrower.
class TitleScreenTest : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        ASSERT_EQ(chdir(KELVANE_RUN_DIR), 0);
        font = new vorlik::Font(new vorlik::Image(kFontPicture, kFontPicture));
        savedFont = Resources::font_medium;
        Resources::font_medium = font;
        savedHud = g_hud;
        g_hud = new DirectScene2D(-1, -1);
        savedWidth = Vorlik::width;
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        Vorlik::width = savedWidth;
        delete g_hud;
        g_hud = savedHud;
        Resources::font_medium = savedFont;
        delete font;
    }

    static float left(const Text* t) { return t->position.x + t->anchor.x - t->size.x / 2; }
    static float centre(const Text* t) { return t->position.x + t->anchor.x; }
    static float top(const Text* t) { return t->position.y + t->anchor.y - t->size.y / 2; }

    vorlik::Font* font = nullptr;
    vorlik::Font* savedFont = nullptr;
    DirectScene2D* savedHud = nullptr;
    uint32_t savedWidth = 0;
};

} // namespace

TEST_F(TitleScreenTest, ThirteenLinesGoIntoTheHudInOrder)
{
    TitleScreen title;
    ASSERT_EQ(title.texts.count, 13u);
    EXPECT_EQ(g_hud->childCount(), 13u);
    Drawable* node = g_hud->first;
    for (uint32_t i = 0; i < title.texts.count; ++i, node = node->next) EXPECT_EQ(node, title.texts.data[i]);
    EXPECT_STREQ(title.texts.data[0]->text.data, "Kelvane");
    EXPECT_STREQ(title.texts.data[1]->text.data, "===========");
    EXPECT_STREQ(title.texts.data[10]->text.data, "-- Orvendil --");
    EXPECT_STREQ(title.texts.data[12]->text.data, "But we're losing with our boots on.");
    for (uint32_t i = 0; i < title.texts.count; ++i) EXPECT_EQ(title.texts.data[i]->font, font);
}

TEST_F(TitleScreenTest, ListStartsWithRoomFor128Texts)
{
    TitleScreen title;
    EXPECT_EQ(title.texts.capacity, TitleScreen::kInitialCapacity);
}

TEST_F(TitleScreenTest, ClearsWhatTheHudHeldBefore)
{
    Text stray(font, "stray");
    g_hud->add(&stray);
    TitleScreen title;
    EXPECT_EQ(stray.parent, nullptr);
    EXPECT_EQ(g_hud->childCount(), 13u);
}

TEST_F(TitleScreenTest, OnAn800PixelWindowLinesAreCentredAndTheSignatureStartsAtTheCentre)
{
    Vorlik::width = 800;
    TitleScreen title;
    for (uint32_t i = 0; i < title.texts.count; ++i) {
        const Text* line = title.texts.data[i];
        if (i == 10)
            EXPECT_FLOAT_EQ(left(line), 400.0f) << "the signature";
        else
            EXPECT_FLOAT_EQ(centre(line), 400.0f) << "line " << i + 1;
        EXPECT_FLOAT_EQ(top(line), line->position.y) << "line " << i + 1 << " hangs from its position";
    }
}

TEST_F(TitleScreenTest, LinesStackWithNineUnitGapsAndWiderGapsBeforeParagraphs)
{
    TitleScreen title;
    const float lineHeight = kFontPicture / 16.0f;
    float expectedY = 25.0f;
    for (uint32_t i = 0; i < title.texts.count; ++i) {
        if (i > 0) expectedY += 9.0f + lineHeight;
        if (i == 2 || i == 10 || i == 11) expectedY += 35.0f; // above lines 3, 11 and 12
        if (i == 7) expectedY += 25.0f;                      // above line 8
        EXPECT_FLOAT_EQ(title.texts.data[i]->position.y, expectedY) << "line " << i + 1;
    }
}

TEST_F(TitleScreenTest, DestroyingTheTitleDeletesItsTexts)
{
    auto* title = new TitleScreen();
    ASSERT_EQ(g_hud->childCount(), 13u);
    delete title; // each text unlinks itself from the HUD as it is deleted
    EXPECT_EQ(g_hud->childCount(), 0u);
}
