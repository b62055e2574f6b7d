// Fixture for the HUD's logic tests, no window needed: a 1280 x 720 window size, a clock set by
// hand, a session in g_game for the counters to be listed in, and a blank big font of the
// game's proportions (glyphs 0.5625 line heights wide), so that texts have real widths; and
// the checks every box shares.
#pragma once

#include "base/Resources.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "scene/Group.h"
#include "scene/Sprite.h"

#include <gtest/gtest.h>

class HudFixture : public ::testing::Test {
protected:
    static constexpr int kFontWidth = 576;   // pixels, as the game's big font
    static constexpr int kFontHeight = 1024; // pixels

    HudFixture()
    {
        using vorlik::Vorlik;
        savedFont = Resources::font_big;
        Resources::font_big = &font;
        savedWidth = Vorlik::width;
        savedHeight = Vorlik::height;
        Vorlik::width = 1280;
        Vorlik::height = 720;
        Vorlik::currentTime = 10000;
        g_game = &session;
    }
    ~HudFixture() override
    {
        using vorlik::Vorlik;
        delete &session; // while g_game still names it, as in the game
        g_game = nullptr;
        Vorlik::width = savedWidth; // a window opened by another test keeps its size
        Vorlik::height = savedHeight;
        Resources::font_big = savedFont;
    }

    // The box's first child is its panel: the picture at half size, centred on the box.
    static void expectPanel(const Group& box, const Sprite* panel, const vorlik::Texture* picture)
    {
        EXPECT_EQ(box.first, panel);
        EXPECT_EQ(panel->texture, picture);
        EXPECT_EQ(panel->scale, 0.5f);
        EXPECT_EQ(panel->position.x, 0.0f);
        EXPECT_EQ(panel->position.y, 0.0f);
    }

    static void expectPlacedAt(const Drawable& node, float x, float y)
    {
        EXPECT_EQ(node.position.x, x);
        EXPECT_EQ(node.position.y, y);
        EXPECT_EQ(node.position.z, 0.0f);
    }

    vorlik::Font font{new vorlik::Image(kFontWidth, kFontHeight)};
    vorlik::Font* savedFont = nullptr;
    uint32_t savedWidth = 0;
    uint32_t savedHeight = 0;
    GameSession& session = *new GameSession;
};
