// A bitmap font: a picture of 16 x 16 equal cells, character code c in column c mod 16 and
// row c div 16, and the texture made from it on first use. Glyphs are drawn one cell wide in
// a unit-high line with no spacing or kerning; the caller scales the line to its text height.
// The font owns its image and its texture.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vorlik {

class Image;
class Texture;

class Font {
public:
    static constexpr int kGridCells = 16; // cells per row and per column of the picture

    // One glyph's quad in line units (y down, 0 at the top of the line) and its cell in
    // texture space; the four vertices in the order top-left, top-right, bottom-right,
    // bottom-left, so the glyph stands upright on a screen whose y axis points down.
    struct GlyphQuad {
        float positions[8]; // x, y per vertex
        float texCoords[8]; // u, v per vertex
    };

    Image* image;     // the glyph picture, owned; null when it failed to load
    Texture* texture; // made from image by the first getTexture, owned

    // Takes ownership of image, which may be null (such a font draws nothing visible).
    explicit Font(Image* image);
    ~Font();

    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    int32_t width() const;  // of the picture in pixels, 0 without one
    int32_t height() const;
    // Width of one glyph in line heights: picture width / picture height, 0 without a picture.
    float advance() const;

    // The texture, created from the image on the first call.
    Texture* getTexture();

    // The quad of character c starting at x, for a glyph of the given advance, in a texture
    // whose picture covers uScale by vScale of it.
    static GlyphQuad glyphQuad(uint8_t c, float x, float advance, float uScale, float vScale);

    // Draws text (up to its NUL) from (0, 0) in line units with the current matrices, program
    // and colour array: enables texturing and the vertex and texture-coordinate arrays, binds
    // the texture on unit 0 and issues one GL_QUADS per character.
    void draw(const char* text);
};

static_assert(!std::is_copy_constructible_v<Font>, "Font owns its image and texture");

} // namespace vorlik
