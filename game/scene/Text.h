// One line of text in a 16 x 16 cell bitmap font, for scores, wave banners and the title
// screen. The position is the top-left corner of the line after construction. Text is drawn
// in its own float colour: the colour inherited from the scene (a fading parent) is ignored.
// The font is not owned; the string is.
#pragma once

#include "core/String.h"
#include "scene/Drawable.h"

namespace vorlik {
class Font;
}

class Text : public Drawable {
public:
    vorlik::Font* font;              // not owned
    vorlik::String text;             // the characters, drawn up to the first NUL
    float color[4] = {1.0f, 1.0f, 1.0f, 1.0f}; // R, G, B, A; hides the Drawable byte colour
    float fontHeight;                // pixels per character; default font picture height / 16

    Text(vorlik::Font* font, const char* text);

    // Copies text (null means empty); height = fontHeight, width = length x glyph advance x
    // fontHeight. The anchor stays as it was: call setAnchor afterwards for another alignment.
    void setText(const char* text);

    // Line width in pixels of length characters of a font of the given advance (glyph width
    // over height) at the given character height.
    static float lineWidth(uint32_t length, float advance, float fontHeight);

    // Draws the line with the font's texture through the textured fixed-function program. An
    // empty line draws no glyph, though the font's texture is still made and bound.
    void draw(const SceneState& state) override;

private:
    void updateSize();
};
