// A CPU-side rectangle of packed 32-bit RGBA pixels (see Color), rows top to bottom.
// Images are where pictures are decoded, composed and generated before they become textures;
// they are never drawn directly. Every access outside the rectangle is defined: writes are
// dropped and reads give 0, so drawing code may run off the edges freely.
#pragma once

#include <cstdint>

namespace vorlik {

class Image {
public:
    uint32_t* pixels; // width * height packed colours, calloc'd, owned
    int32_t width;    // pixels, at least 1
    int32_t height;   // pixels, at least 1

    // A zeroed (transparent black) image; sizes below 1 are raised to 1.
    Image(int32_t width, int32_t height);
    Image(const Image& other);
    Image& operator=(const Image& other);
    ~Image();

    // Ignored outside 0 <= x < width, 0 <= y < height.
    void setPixel(int32_t x, int32_t y, uint32_t color);
    // 0 outside the image.
    uint32_t getPixel(int32_t x, int32_t y) const;

    // Copies a w x h block of src starting at (srcX, srcY) to (dstX, dstY) of this image.
    // A negative w or h means src's full width or height. Source pixels outside src are
    // skipped, destination pixels outside this image are dropped. A null src or src equal to
    // this image does nothing.
    void blit(const Image* src, int32_t srcX, int32_t srcY, int32_t dstX, int32_t dstY,
              int32_t w = -1, int32_t h = -1);

    // Every pixel equal to from becomes to.
    void replace(uint32_t from, uint32_t to);

private:
    bool contains(int32_t x, int32_t y) const { return x >= 0 && x < width && y >= 0 && y < height; }
};

} // namespace vorlik
