// The backdrop of the world: the nebula sky box seen through a slowly swinging perspective
// camera, and before it star sprites that drift against the camera's motion, near ones fastest.
// Stars live in screen pixels and are drawn once a frame whatever the world camera's zoom,
// turn or wrapped copies. The game session makes one with 512 stars once the pictures are
// loaded, owns it, adds it first to g_world (drawn under everything) and, each frame after
// moving the world camera, calls update(cameraStep(old camera, new camera, window, world)).
#pragma once

#include "core/Stack.h"
#include "graphics/Camera.h"
#include "graphics/SkyBox.h"
#include "math/vec2.h"
#include "scene/Effect.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>

namespace vorlik {
class Texture;
}

class Starfield : public Effect {
public:
    struct Star {
        float x, y, z;          // x and y in screen pixels from the top-left; z the depth
        uint8_t r, g, b, a;     // each colour byte 168 to 255; alpha 255
        float brightness;       // 1 for the nearest stars, lower for far and large ones
        float size;             // times starWidth x starHeight
    };

    // One corner of a star's quad as GL reads it: 20 bytes, position, texture corner, colour.
    struct Vertex {
        float x, y;
        float u, v;
        uint8_t r, g, b, a;
    };

    // Receives the star quads in batches, each a whole number of quads (GL_QUADS order).
    class BatchSink {
    public:
        virtual ~BatchSink() = default;
        virtual void drawBatch(const vorlik::Stack<Vertex>& vertices) = 0;
    };

    static constexpr uint32_t kBatchVertices = 512;    // 128 stars a draw call
    static constexpr float kSkyBrightness = 0.82f;
    static constexpr float kSkyTiltX = 7.0f;           // degrees
    static constexpr float kSkyTiltZ = 56.0f;          // degrees
    static constexpr float kSkyFieldOfView = 50.0f;    // degrees, vertical
    static constexpr float kSkyTimeScale = 650000.0f;  // ms per radian of the sky camera's path

    vorlik::Texture* starTexture;  // Resources::star_tex; not owned. Null draws no stars
    std::unique_ptr<Star[]> stars; // count records, then one zeroed spare that is never drawn
    uint32_t count;                // the records in stars; never raised
    float parallax = 0.8f;         // a star at depth z moves parallax / z of the camera's move
    float minDepth = 1.0f;
    float maxDepth = 30.0f;
    float margin = 50.0f;          // pixels: how far outside the screen stars may lie
    float starWidth = 32.0f;       // pixels at star size 1
    float starHeight = 15.0f;
    uint8_t drawSky = 1;
    uint8_t drawStars = 1;
    vorlik::Camera skyCamera;      // placed by the clock at every draw
    vorlik::SkyBox sky;            // the six Resources::skybox_*_tex faces, dimmed and tilted
    float screenWidth;             // pixels: the area the stars cover and wrap round in
    float screenHeight;

    // count stars scattered over the window (Vorlik's size) and its margin, from g_rand.
    explicit Starfield(uint32_t count);
    // The same over a screen of the given size in pixels.
    Starfield(uint32_t count, float screenWidth, float screenHeight);

    // 1 - (z - minDepth) / (maxDepth - minDepth) x size: near and small stars are brightest.
    float brightnessAt(float z, float size) const;
    // Moves every star by -cameraDisplacement x parallax / z, then wraps it into the screen
    // and its margin.
    void update(const vorlik::vec2& cameraDisplacement);
    // The sky (with drawSky), then the stars (with drawStars), both added onto the picture.
    void draw(const SceneState& state) override;

    // What the stars scroll by when the world camera goes from previous to current: their
    // difference, except that a jump on an axis of more than the window's extent is a wrap
    // across the world's seam, not a real move, and is shortened by one world size.
    static vorlik::vec2 cameraStep(const vorlik::vec2& previous, const vorlik::vec2& current,
                                   const vorlik::vec2& window, const vorlik::vec2& world);
    // Puts the sky camera where the clock (ms) says on its slow swing, field of view 50.
    static void placeSkyCamera(vorlik::Camera& camera, uint32_t nowMs);
    // Empties vertices and fills it with every star's quad, from the first star, handing it to
    // sink whenever it holds kBatchVertices and once more at the end if anything is left.
    void batchStars(vorlik::Stack<Vertex>& vertices, BatchSink& sink) const;
};

static_assert(sizeof(Starfield::Vertex) == 20, "the vertex layout GL is given: stride 20");
static_assert(offsetof(Starfield::Vertex, u) == 8 && offsetof(Starfield::Vertex, r) == 16,
              "texture corner at byte 8, colour at byte 16");
static_assert(std::is_trivially_copyable_v<Starfield::Vertex>, "kept in a Stack, copied bytewise");
