#include "text/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <cstdio>

namespace assetgen {

FontFace::FontFace(const std::string& fileName)
{
    std::string path = std::string(KELVANE_FONT_DIR) + "/" + fileName;
    if (FT_Init_FreeType(&library_) != 0) {
        library_ = nullptr;
        std::fprintf(stderr, "assetgen: FreeType did not start\n");
        return;
    }
    if (FT_New_Face(library_, path.c_str(), 0, &face_) != 0) {
        face_ = nullptr;
        std::fprintf(stderr, "assetgen: cannot open font %s\n", path.c_str());
    }
}

FontFace::~FontFace()
{
    if (face_)
        FT_Done_Face(face_);
    if (library_)
        FT_Done_FreeType(library_);
}

void FontFace::setPixelSize(int emWidth, int emHeight)
{
    if (face_)
        FT_Set_Pixel_Sizes(face_, static_cast<FT_UInt>(emWidth), static_cast<FT_UInt>(emHeight));
}

float FontFace::ascender() const { return face_ ? face_->size->metrics.ascender / 64.0f : 0; }
float FontFace::descender() const { return face_ ? -face_->size->metrics.descender / 64.0f : 0; }

float FontFace::advance(uint32_t code)
{
    if (!face_ || FT_Load_Char(face_, code, FT_LOAD_DEFAULT) != 0)
        return 0;
    return face_->glyph->advance.x / 64.0f;
}

Glyph FontFace::glyph(uint32_t code, float embolden)
{
    Glyph g;
    if (!face_ || FT_Load_Char(face_, code, FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_LIGHT) != 0)
        return g;
    FT_GlyphSlot slot = face_->glyph;
    g.advance = slot->advance.x / 64.0f;
    if (slot->format != FT_GLYPH_FORMAT_OUTLINE)
        return g;
    if (embolden > 0)
        FT_Outline_Embolden(&slot->outline, static_cast<FT_Pos>(embolden * 64));
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0)
        return g;
    const FT_Bitmap& bm = slot->bitmap;
    g.width = static_cast<int>(bm.width);
    g.height = static_cast<int>(bm.rows);
    g.left = slot->bitmap_left;
    g.top = slot->bitmap_top;
    g.coverage.resize(static_cast<size_t>(g.width) * g.height);
    for (int y = 0; y < g.height; ++y)
        for (int x = 0; x < g.width; ++x)
            g.coverage[static_cast<size_t>(y) * g.width + x] = bm.buffer[y * bm.pitch + x];
    return g;
}

} // namespace assetgen
