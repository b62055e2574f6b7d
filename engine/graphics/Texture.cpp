#include "graphics/Texture.h"

#include "graphics/Image.h"
#include "math/scalar.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace vorlik {

namespace {
constexpr int32_t kMinEmptySide = 8;  // texels, floor of the empty-texture constructor
constexpr int32_t kMinEmptyDepth = 2; // slices

void upload(const Image& image)
{
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, image.width, image.height, 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, image.pixels);
}
} // namespace

uint32_t Texture::usedMemory = 0;

Texture::Texture(const Image* image)
    : unit(GL_TEXTURE0), id(0), uScale(1.0f), vScale(1.0f), width(0), height(0), depth(0),
      target(GL_TEXTURE_2D), format(GL_RGBA8)
{
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    if (image == nullptr) return;

    const uint32_t w = static_cast<uint32_t>(image->width);
    const uint32_t h = static_cast<uint32_t>(image->height);
    if (isPowerOfTwo(w) && isPowerOfTwo(h)) {
        width = image->width;
        height = image->height;
        upload(*image);
    } else {
        Image padded(static_cast<int32_t>(nextPowerOfTwo(w)), static_cast<int32_t>(nextPowerOfTwo(h)));
        padded.blit(image, 0, 0, 0, 0);
        uScale = static_cast<float>(image->width) / static_cast<float>(padded.width);
        vScale = static_cast<float>(image->height) / static_cast<float>(padded.height);
        width = padded.width;
        height = padded.height;
        upload(padded);
    }
    usedMemory += memoryFor(width, height);
}

Texture::Texture(int32_t w, int32_t h, int32_t d, uint32_t tgt, uint32_t fmt)
    : unit(0), id(0), uScale(1.0f), vScale(1.0f),
      width(w < kMinEmptySide ? kMinEmptySide : w), height(h < kMinEmptySide ? kMinEmptySide : h),
      depth(d < kMinEmptyDepth ? kMinEmptyDepth : d), target(tgt), format(fmt)
{
    glGenTextures(1, &id);
    glBindTexture(target, id);
    glTexParameteri(target, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(target, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    switch (target) {
    case GL_TEXTURE_2D:
        glTexParameteri(target, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        glTexImage2D(target, 0, format, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        break;
    case GL_TEXTURE_3D:
        glTexParameteri(target, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        glTexParameteri(target, GL_TEXTURE_WRAP_R, GL_CLAMP_TO_EDGE);
        glTexImage3D(target, 0, format, width, height, depth, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        break;
    case GL_TEXTURE_1D:
        glTexImage1D(target, 0, format, width, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
        break;
    default:
        break;
    }
    glBindTexture(target, 0);
    usedMemory += memoryFor(width, height);
}

Texture::~Texture()
{
    glDeleteTextures(1, &id);
    usedMemory -= memoryFor(width, height);
}

void Texture::bind(uint32_t textureUnit)
{
    unit = textureUnit;
    glActiveTexture(unit);
    glBindTexture(target, id);
}

void Texture::unbind()
{
    glActiveTexture(unit);
    glBindTexture(target, 0);
}

} // namespace vorlik
