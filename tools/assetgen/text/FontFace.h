// FontFace: one TrueType face opened with FreeType, rendering single glyphs to antialiased
// coverage bitmaps. Used for the game's bitmap fonts and the title logo. A face that fails
// to open reports it once; its glyphs then come back empty.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace assetgen {

struct Glyph {
    int width = 0, height = 0;  // bitmap size
    int left = 0, top = 0;      // bitmap origin relative to the pen on the baseline (top is up)
    float advance = 0;          // pixels
    std::vector<uint8_t> coverage;
};

class FontFace {
public:
    // fileName inside the Debian DejaVu font directory.
    explicit FontFace(const std::string& fileName);
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    bool ok() const { return face_ != nullptr; }
    void setPixelSize(int emPixels) { setPixelSize(emPixels, emPixels); }
    // A face stretched or narrowed: em width and em height in pixels.
    void setPixelSize(int emWidth, int emHeight);
    float ascender() const;    // pixels above the baseline at the current size
    float descender() const;   // pixels below it, positive
    float advance(uint32_t code);
    // Renders a glyph, its outline first thickened by embolden pixels in all.
    Glyph glyph(uint32_t code, float embolden = 0);

private:
    FT_LibraryRec_* library_ = nullptr;
    FT_FaceRec_* face_ = nullptr;
};

} // namespace assetgen
