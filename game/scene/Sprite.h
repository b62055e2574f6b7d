// One textured quad, the common leaf of the scene: ships, bullets, HUD pictures. The texture
// may be a grid of animation frames (columns x rows, frame counted row by row). The sprite
// neither owns its textures nor draws its glow texture; whoever builds the sprite keeps both.
// Draw only through a scene, which loads the matrices and the blend function first.
#pragma once

#include "scene/Drawable.h"

#include <cstdint>

namespace vorlik {
class Texture;
}

class Sprite : public Drawable {
public:
    // Texture-space rectangle of one frame.
    struct FrameRect {
        float u0, v0, u1, v1;
    };

    // The quad the sprite draws: corners in the order (left, top), (right, top),
    // (right, bottom), (left, bottom) with y pointing down, and their texture coordinates.
    struct Quad {
        float positions[8];
        float texCoords[8];
    };

    static constexpr float kOwnSize = -1.0f; // a width or height taken from the picture

    vorlik::Texture* texture;     // not owned; null or without storage draws nothing
    vorlik::Texture* glowTexture; // not owned, not drawn by the sprite
    uint8_t animated = 0;         // when set, texture is a grid of frames
    int32_t columns = 1;          // frames per row of the grid
    int32_t rows = 1;             // rows of the grid
    int32_t frame = 0;            // current frame, counted row by row from the top-left

    // A width or height of -1 means the picture's own size in pixels (the texture size times
    // the part of it the picture covers).
    Sprite(vorlik::Texture* texture, float width, float height);
    Sprite(vorlik::Texture* texture, vorlik::Texture* glow, float width, float height);

    // Frame frame of a columns x rows grid over the used part uScale x vScale of a texture:
    // column = frame mod columns, row = frame div columns. Not animated: the whole used part.
    // A grid size below 1 counts as 1, so a sprite marked animated before its grid is set
    // never divides by zero.
    static FrameRect frameRect(float uScale, float vScale, bool animated, int32_t columns,
                               int32_t rows, int32_t frame);
    // The sprite's quad for its current size, anchor and frame.
    Quad quad() const;

    // Draws the quad with the texture on unit 0 through the textured fixed-function program,
    // every vertex in the colour inherited from the scene.
    void draw(const SceneState& state) override;
};
