#include "graphics/Image.h"

#include <cstdlib>
#include <cstring>

namespace vorlik {

namespace {
uint32_t* allocatePixels(int32_t width, int32_t height)
{
    return static_cast<uint32_t*>(std::calloc(static_cast<size_t>(width) * height, sizeof(uint32_t)));
}
} // namespace

Image::Image(int32_t w, int32_t h)
    : width(w < 1 ? 1 : w), height(h < 1 ? 1 : h)
{
    pixels = allocatePixels(width, height);
}

Image::Image(const Image& other)
    : width(other.width), height(other.height)
{
    pixels = allocatePixels(width, height);
    std::memcpy(pixels, other.pixels, static_cast<size_t>(width) * height * sizeof(uint32_t));
}

Image& Image::operator=(const Image& other)
{
    if (this == &other) return *this;
    uint32_t* copy = allocatePixels(other.width, other.height);
    std::memcpy(copy, other.pixels, static_cast<size_t>(other.width) * other.height * sizeof(uint32_t));
    std::free(pixels);
    pixels = copy;
    width = other.width;
    height = other.height;
    return *this;
}

Image::~Image()
{
    std::free(pixels);
}

void Image::setPixel(int32_t x, int32_t y, uint32_t color)
{
    if (contains(x, y)) pixels[y * width + x] = color;
}

uint32_t Image::getPixel(int32_t x, int32_t y) const
{
    return contains(x, y) ? pixels[y * width + x] : 0;
}

void Image::blit(const Image* src, int32_t srcX, int32_t srcY, int32_t dstX, int32_t dstY,
                 int32_t w, int32_t h)
{
    if (src == nullptr || src == this) return;
    if (w < 0) w = src->width;
    if (h < 0) h = src->height;
    for (int32_t j = 0; j < h; ++j) {
        for (int32_t i = 0; i < w; ++i) {
            if (!src->contains(srcX + i, srcY + j)) continue;
            setPixel(dstX + i, dstY + j, src->pixels[(srcY + j) * src->width + srcX + i]);
        }
    }
}

void Image::replace(uint32_t from, uint32_t to)
{
    const int32_t n = width * height;
    for (int32_t i = 0; i < n; ++i) {
        if (pixels[i] == from) pixels[i] = to;
    }
}

} // namespace vorlik
