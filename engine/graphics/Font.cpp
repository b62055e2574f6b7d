#include "graphics/Font.h"

#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace vorlik {

Font::Font(Image* picture)
    : image(picture), texture(nullptr)
{
}

Font::~Font()
{
    delete texture;
    delete image;
}

int32_t Font::width() const { return image != nullptr ? image->width : 0; }

int32_t Font::height() const { return image != nullptr ? image->height : 0; }

float Font::advance() const
{
    if (height() == 0) return 0.0f;
    return static_cast<float>(width()) / static_cast<float>(height());
}

Texture* Font::getTexture()
{
    if (texture == nullptr) texture = new Texture(image);
    return texture;
}

Font::GlyphQuad Font::glyphQuad(uint8_t c, float x, float advance, float uScale, float vScale)
{
    const float cellU = uScale / kGridCells;
    const float cellV = vScale / kGridCells;
    const float u0 = static_cast<float>(c % kGridCells) * cellU;
    const float v0 = static_cast<float>(c / kGridCells) * cellV;
    const float u1 = u0 + cellU;
    const float v1 = v0 + cellV;
    const float x1 = x + advance;
    // The picture's top row is v = 0, and the line's top is y = 0.
    return GlyphQuad{{x, 0.0f, x1, 0.0f, x1, 1.0f, x, 1.0f},
                     {u0, v0, u1, v0, u1, v1, u0, v1}};
}

void Font::draw(const char* text)
{
    glEnable(GL_TEXTURE_2D);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_VERTEX_ARRAY);
    Texture* glyphs = getTexture();
    glyphs->bind(GL_TEXTURE0);
    if (text == nullptr) return;

    const float a = advance();
    float x = 0.0f;
    for (const char* p = text; *p != '\0'; ++p, x += a) {
        const GlyphQuad quad = glyphQuad(static_cast<uint8_t>(*p), x, a, glyphs->uScale, glyphs->vScale);
        glVertexPointer(2, GL_FLOAT, 0, quad.positions);
        glTexCoordPointer(2, GL_FLOAT, 0, quad.texCoords);
        glDrawArrays(GL_QUADS, 0, 4);
    }
}

} // namespace vorlik
