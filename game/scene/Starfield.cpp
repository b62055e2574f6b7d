#include "scene/Starfield.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "graphics/Texture.h"
#include "math/mat4.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "scene/SceneState.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <cmath>

namespace {

constexpr int32_t kChannelMin = 168; // star colour bytes, 168 to 255 inclusive
constexpr int32_t kChannelEnd = 256; // integer draws never reach their upper end
constexpr uint8_t kOpaque = 255;
constexpr float kSizeMin = 0.2f;     // star sizes, times starWidth x starHeight
constexpr float kSizeMax = 0.7f;
constexpr uint32_t kSharedVertexCapacity = 1024;

// The one list every starfield's batches are built in; it keeps its memory for the program's
// life, so a frame allocates nothing.
vorlik::Stack<Starfield::Vertex>& sharedVertices()
{
    static vorlik::Stack<Starfield::Vertex> vertices(kSharedVertexCapacity);
    return vertices;
}

// Draws each batch as quads from the interleaved vertices.
class GLStarBatches : public Starfield::BatchSink {
public:
    void drawBatch(const vorlik::Stack<Starfield::Vertex>& vertices) override
    {
        const GLsizei stride = sizeof(Starfield::Vertex);
        glVertexPointer(2, GL_FLOAT, stride, &vertices.data[0].x);
        glTexCoordPointer(2, GL_FLOAT, stride, &vertices.data[0].u);
        glColorPointer(4, GL_UNSIGNED_BYTE, stride, &vertices.data[0].r);
        glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(vertices.count));
    }
};

} // namespace

Starfield::Starfield(uint32_t starCount)
    : Starfield(starCount, static_cast<float>(vorlik::Vorlik::getWidth()),
                static_cast<float>(vorlik::Vorlik::getHeight()))
{
}

Starfield::Starfield(uint32_t starCount, float width, float height)
    : starTexture(Resources::star_tex), stars(new Star[starCount + 1]()), count(starCount), screenWidth(width),
      screenHeight(height)
{
    sky.faces[vorlik::SkyBox::LEFT] = Resources::skybox_left_tex;
    sky.faces[vorlik::SkyBox::RIGHT] = Resources::skybox_right_tex;
    sky.faces[vorlik::SkyBox::FRONT] = Resources::skybox_front_tex;
    sky.faces[vorlik::SkyBox::BACK] = Resources::skybox_back_tex;
    sky.faces[vorlik::SkyBox::TOP] = Resources::skybox_top_tex;
    sky.faces[vorlik::SkyBox::BOTTOM] = Resources::skybox_bottom_tex;
    sky.brightness = kSkyBrightness;
    sky.tiltX = kSkyTiltX;
    sky.tiltZ = kSkyTiltZ;

    // Made from the last star to the first, each from seven draws in this order.
    for (uint32_t i = count; i-- > 0;) {
        Star& s = stars[i];
        s.b = static_cast<uint8_t>(g_rand.range(kChannelMin, kChannelEnd));
        s.g = static_cast<uint8_t>(g_rand.range(kChannelMin, kChannelEnd));
        s.r = static_cast<uint8_t>(g_rand.range(kChannelMin, kChannelEnd));
        s.a = kOpaque;
        s.x = g_rand.range(-margin, screenWidth + margin);
        s.y = g_rand.range(-margin, screenHeight + margin);
        s.z = g_rand.range(minDepth, maxDepth);
        s.size = g_rand.range(kSizeMin, kSizeMax);
        s.brightness = brightnessAt(s.z, s.size);
    }
    setVisible(true);
}

float Starfield::brightnessAt(float z, float size) const
{
    return 1.0f - ((z - minDepth) / (maxDepth - minDepth)) * size;
}

void Starfield::update(const vorlik::vec2& d)
{
    for (uint32_t i = 0; i < count; ++i) {
        Star& s = stars[i];
        s.x += -d.x * parallax / s.z;
        s.y += -d.y * parallax / s.z;
        // Rounding can leave a star exactly on the far bound instead of the near one, a
        // place just as far off screen; nothing relies on the bound being open.
        s.x = vorlik::wrap(s.x, -margin, screenWidth + margin);
        s.y = vorlik::wrap(s.y, -margin, screenHeight + margin);
    }
}

vorlik::vec2 Starfield::cameraStep(const vorlik::vec2& previous, const vorlik::vec2& current,
                                   const vorlik::vec2& window, const vorlik::vec2& world)
{
    // Each axis is corrected once at most, by the first test that holds. The first frame of a
    // game, when the camera leaves the scene's starting point for the ship at the world's
    // centre (a move of more than a window), counts as a wrap too and throws the stars once;
    // being random, they show nothing of it.
    vorlik::vec2 d = current - previous;
    if (d.x > window.x)
        d.x -= world.x;
    else if (d.x < -window.x)
        d.x += world.x;
    if (d.y > window.y)
        d.y -= world.y;
    else if (d.y < -window.y)
        d.y += world.y;
    return d;
}

void Starfield::placeSkyCamera(vorlik::Camera& camera, uint32_t nowMs)
{
    // The clock is divided as a real number: divided in whole numbers the sky would stand
    // still for eleven minutes at a time and then jump a radian. Where t wraps from pi to -pi
    // (34 minutes in, then every 68) the path does not close, and the sky jumps once.
    const float t = vorlik::wrap(static_cast<float>(static_cast<double>(nowMs) / kSkyTimeScale), -vorlik::kPi, vorlik::kPi);
    camera.position = vorlik::vec3(-25.0f * std::cos(1.8f * t), 9.0f - std::sin(1.1f * t), 25.0f * std::sin(1.4f * t));
    camera.fieldOfView = kSkyFieldOfView;
    camera.target = vorlik::vec3(0.0f, 1.5f + std::cos(2.1f * t), 1.0f);
}

void Starfield::batchStars(vorlik::Stack<Vertex>& vertices, BatchSink& sink) const
{
    vertices.clear();
    for (uint32_t i = 0; i < count; ++i) {
        const Star& s = stars[i];
        const float hw = 0.5f * starWidth * s.size;
        const float hh = 0.5f * starHeight * s.size;
        const uint8_t alpha = static_cast<uint8_t>(255.0f * s.brightness);
        vertices.push(Vertex{s.x - hw, s.y - hh, 0.0f, 0.0f, s.r, s.g, s.b, alpha});
        vertices.push(Vertex{s.x + hw, s.y - hh, 1.0f, 0.0f, s.r, s.g, s.b, alpha});
        vertices.push(Vertex{s.x + hw, s.y + hh, 1.0f, 1.0f, s.r, s.g, s.b, alpha});
        vertices.push(Vertex{s.x - hw, s.y + hh, 0.0f, 1.0f, s.r, s.g, s.b, alpha});
        if (vertices.count == kBatchVertices) {
            sink.drawBatch(vertices);
            vertices.clear();
        }
    }
    if (!vertices.empty()) sink.drawBatch(vertices);
}

void Starfield::draw(const SceneState& state)
{
    if (drawSky) {
        glBlendFunc(GL_SRC_ALPHA, GL_ONE);
        placeSkyCamera(skyCamera, vorlik::Vorlik::currentTime);
        skyCamera.apply(vorlik::Camera::kApplyAll);
        Shaders::useTextured();
        sky.draw(skyCamera);
    }
    if (drawStars && starTexture != nullptr) {
        // Star positions are screen pixels from the top-left corner.
        vorlik::mat4 modelView;
        modelView.translate(-screenWidth / 2.0f, -screenHeight / 2.0f, 0.0f);
        glMatrixMode(GL_PROJECTION);
        glLoadMatrixf(state.projection->data());
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixf(modelView.data());
        glBlendFunc(GL_SRC_ALPHA, GL_ONE);
        glEnableClientState(GL_VERTEX_ARRAY);
        glEnableClientState(GL_COLOR_ARRAY);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        Shaders::useTextured();
        starTexture->bind(GL_TEXTURE0);
        GLStarBatches batches;
        batchStars(sharedVertices(), batches);
    }
}
