#include "scene/Text.h"

#include "graphics/Font.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace {
constexpr int kCellShift = 4;       // a font picture is 16 cells high

float defaultFontHeight(const vorlik::Font* font)
{
    return font != nullptr ? static_cast<float>(font->height() >> kCellShift) : 0.0f;
}
} // namespace

Text::Text(vorlik::Font* f, const char* t)
    : font(f), fontHeight(defaultFontHeight(f))
{
    setText(t);
    setAnchor(ANCHOR_TOP_LEFT);
}

float Text::lineWidth(uint32_t length, float advance, float height)
{
    return static_cast<float>(length) * advance * height;
}

void Text::updateSize()
{
    const float advance = font != nullptr ? font->advance() : 0.0f;
    size.x = lineWidth(text.length, advance, fontHeight);
    size.y = fontHeight;
}

void Text::setText(const char* t)
{
    text = t != nullptr ? t : "";
    updateSize();
}

void Text::draw(const SceneState&)
{
    updateSize();
    if (font == nullptr) return;

    const float colors[16] = {color[0], color[1], color[2], color[3], color[0], color[1], color[2], color[3],
                              color[0], color[1], color[2], color[3], color[0], color[1], color[2], color[3]};
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glTranslatef(anchor.x - size.x / 2.0f, anchor.y - size.y / 2.0f, 0.0f);
    glScalef(fontHeight, fontHeight, 1.0f);
    glEnableClientState(GL_COLOR_ARRAY);
    glColorPointer(4, GL_FLOAT, 0, colors);
    Shaders::useTextured();
    font->draw(text.data);
    glPopMatrix();
}
