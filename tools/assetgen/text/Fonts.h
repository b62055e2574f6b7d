// Fonts: the game's four bitmap fonts (hugefont, medfont, smallfont, minifont). Each is a
// 16 x 16 grid of equal cells, character code c in column c mod 16 and row c div 16, with
// printable ASCII and Latin-1: white glyphs in alpha with a thin dark outline, which the game
// tints, and an empty border round every cell. A character is drawn (width / height of the
// picture) times as wide as it is high.
#pragma once

#include <vector>

#include "core/AssetSink.h"

namespace assetgen {

struct FontStyle {
    const char* name;
    int cellWidth, cellHeight;  // pixels; the picture is 16 cells each way
    float outline;              // pixels of dark edge round every glyph
    float embolden;             // pixels added to every stroke
};

// hugefont: "Game Over" at its own 64-pixel height, the score and energy lines at 15, so
// its strokes are heavy enough to survive a four-fold reduction without mipmaps.
// medfont: 32 pixels high, so the title notice's 13 lines fit in 720.
const std::vector<FontStyle>& fontStyles();

void makeFont(AssetSink& sink, const FontStyle& style);

} // namespace assetgen
