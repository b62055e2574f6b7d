// A GL texture object with its texel size and the part of it that holds picture data.
// Pictures whose sides are not powers of two are padded, not resized: draw with texture
// coordinates multiplied by uScale and vScale. A texture owns its GL name and is not copyable;
// every live texture is counted in usedMemory. Needs a current GL context.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vorlik {

class Image;

class Texture {
public:
    uint32_t unit;       // texture unit last bound to (GL_TEXTURE0 for textures made from images)
    uint32_t id;         // GL texture name
    float uScale;        // fraction of the width covered by the picture, 1.0 unless padded
    float vScale;        // the same for the height
    int32_t width;       // texels; 0 when a failed load left the texture without storage
    int32_t height;      // texels
    int32_t depth;       // slices of a 3D texture
    uint32_t target;     // GL_TEXTURE_1D, GL_TEXTURE_2D or GL_TEXTURE_3D
    uint32_t format;     // internal format, GL_RGBA8 for textures made from images

    // Bytes of all live textures, width * height * 4 each (a 3D texture counts one slice).
    static uint32_t usedMemory;

    // A 2D GL_RGBA8 texture holding the image, padded to powers of two if needed; linear
    // filtering, repeat wrapping. A null image gives a texture without storage, size 0.
    explicit Texture(const Image* image);
    // An empty render texture, at least 8 x 8 texels and depth 2; linear, clamped to edge.
    // Targets other than 1D, 2D and 3D get a name but no storage.
    Texture(int32_t width, int32_t height, int32_t depth, uint32_t target, uint32_t format);
    ~Texture();

    Texture(const Texture&) = delete;
    Texture& operator=(const Texture&) = delete;

    // Makes unit active and binds this texture to it; remembers the unit for unbind.
    void bind(uint32_t unit);
    // Clears this texture's target on the remembered unit.
    void unbind();

    // Bytes that a texture of this size adds to usedMemory.
    static uint32_t memoryFor(int32_t width, int32_t height)
    {
        return static_cast<uint32_t>(width) * static_cast<uint32_t>(height) * 4u;
    }
};

// A texture owns its GL name: a copy would delete it twice.
static_assert(!std::is_copy_constructible_v<Texture>, "Texture owns a GL name");
static_assert(!std::is_copy_assignable_v<Texture>, "Texture owns a GL name");

} // namespace vorlik
