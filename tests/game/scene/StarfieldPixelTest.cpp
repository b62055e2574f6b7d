// The starfield drawn for real under Xvfb with the generated sky and star pictures: the sky
// fills the world's whole picture at every point of its swing, its faces meet without a seam
// where the camera looks across the cube's edges and corners, and the stars are drawn once.
// With KELVANE_TEST_PICTURES naming a directory, the frames checked are also written there
// as PNG files for a person to look at.
#include "scene/Starfield.h"

#include "PngEncoder.h"
#include "SceneGLNodes.h"
#include "SceneOverBlackTest.h"
#include "base/GameRandom.h"
#include "base/Resources.h"
#include "graphics/Camera.h"
#include "graphics/FrameBuffer.h"
#include "graphics/ImageLoader.h"
#include "graphics/SkyBox.h"
#include "graphics/Texture.h"
#include "math/vec4.h"
#include "platform/Vorlik.h"
#include "scene/Scene2D.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

using vorlik::Camera;
using vorlik::SkyBox;
using vorlik::Texture;
using vorlik::vec3;
using vorlik::vec4;

namespace {

constexpr float kWorld = 4096.0f;
constexpr uint32_t kMinute = 60000; // ms
constexpr int kWindowWidth = 1280;  // the test window's, as DisplayTest opens it
constexpr int kWindowHeight = 720;

struct PictureSlot {
    const char* path;
    Texture** global;
};

const PictureSlot kPictures[] = {
    {"gfx/star.png", &Resources::star_tex},
    {"gfx/sky_front.png", &Resources::skybox_front_tex},
    {"gfx/sky_back.png", &Resources::skybox_back_tex},
    {"gfx/sky_left.png", &Resources::skybox_left_tex},
    {"gfx/sky_right.png", &Resources::skybox_right_tex},
    {"gfx/sky_top.png", &Resources::skybox_top_tex},
    {"gfx/sky_bottom.png", &Resources::skybox_bottom_tex},
};
constexpr size_t kPictureCount = sizeof kPictures / sizeof kPictures[0];

// Writes the window as name.png into $KELVANE_TEST_PICTURES, when that is set.
void keepPicture(const char* name)
{
    const char* dir = std::getenv("KELVANE_TEST_PICTURES");
    if (dir == nullptr) return;
    constexpr int kW = kWindowWidth, kH = kWindowHeight;
    const WindowPixels window(kW, kH);
    std::vector<uint8_t> rgba;
    rgba.reserve(size_t(kW) * kH * 4);
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x) {
            const Pixel p = window.at(x, y);
            rgba.insert(rgba.end(), {uint8_t(p.r), uint8_t(p.g), uint8_t(p.b), 255});
        }
    const std::vector<uint8_t> png = pngtest::encode(kW, kH, rgba);
    const std::string path = std::string(dir) + "/" + name + ".png";
    if (FILE* f = std::fopen(path.c_str(), "wb")) {
        std::fwrite(png.data(), 1, png.size(), f);
        std::fclose(f);
    }
}

// The world scene over black with the game's world size, and the star and sky pictures
// loaded into their Resources globals for as long as the test runs. Stars are drawn from
// g_rand, which is left as it was built.
class StarfieldPixelTest : public SceneOverBlackTest<Scene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        if (IsSkipped()) return;
        scene->worldWidth = scene->worldHeight = kWorld;
        for (size_t i = 0; i < kPictureCount; ++i) {
            pictures[i].reset(vorlik::ImageLoader::loadTexture(kPictures[i].path, false));
            ASSERT_GT(pictures[i]->width, 0) << kPictures[i].path;
            *kPictures[i].global = pictures[i].get();
        }
        savedTime = vorlik::Vorlik::currentTime;
    }
    void TearDown() override
    {
        for (const PictureSlot& slot : kPictures) *slot.global = nullptr;
        vorlik::Vorlik::currentTime = savedTime;
        g_rand.seed(kStaticRandomSeed); // as built, for the tests that expect it untouched
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        SceneOverBlackTest::TearDown();
    }

    // Renders the world with field in it at the given clock time.
    void renderAt(Starfield& field, uint32_t nowMs)
    {
        vorlik::Vorlik::currentTime = nowMs;
        scene->add(&field);
        scene->render();
        scene->remove(&field);
    }

    // The world's own picture (before it is composited), read from its target.
    std::vector<uint8_t> readTarget()
    {
        std::vector<uint8_t> rgba(size_t(kWidth) * kHeight * 4);
        scene->target->bind();
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        vorlik::FrameBuffer::unbind();
        return rgba;
    }

    std::unique_ptr<Texture> pictures[kPictureCount];
    uint32_t savedTime = 0;
};

} // namespace

TEST_F(StarfieldPixelTest, TakesItsPicturesFromTheResources)
{
    const Starfield field(1);
    EXPECT_EQ(field.starTexture, Resources::star_tex);
    EXPECT_EQ(field.sky.faces[SkyBox::FRONT], Resources::skybox_front_tex);
    EXPECT_EQ(field.sky.faces[SkyBox::BACK], Resources::skybox_back_tex);
    EXPECT_EQ(field.sky.faces[SkyBox::LEFT], Resources::skybox_left_tex);
    EXPECT_EQ(field.sky.faces[SkyBox::RIGHT], Resources::skybox_right_tex);
    EXPECT_EQ(field.sky.faces[SkyBox::TOP], Resources::skybox_top_tex);
    EXPECT_EQ(field.sky.faces[SkyBox::BOTTOM], Resources::skybox_bottom_tex);
    EXPECT_EQ(field.screenWidth, float(kWidth));
    EXPECT_EQ(field.screenHeight, float(kHeight));
}

TEST_F(StarfieldPixelTest, SkyFillsTheWholeWorldPictureAllAlongItsSwing)
{
    // The target is cleared to transparent black and the sky is added on top at full alpha,
    // so a pixel the sky missed keeps alpha 0 whatever colour the pictures have there.
    Starfield field(0);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    for (uint32_t minutes : {0u, 7u, 17u, 26u, 34u, 35u, 52u, 61u}) {
        renderAt(field, minutes * kMinute);
        const std::vector<uint8_t> rgba = readTarget();
        int uncovered = 0;
        for (size_t i = 3; i < rgba.size(); i += 4) uncovered += rgba[i] != 255;
        EXPECT_EQ(uncovered, 0) << "at minute " << minutes;
    }
    keepPicture("starfield_sky_only");
}

TEST_F(StarfieldPixelTest, WithNoStarsOnlyTheSkyIsDrawn)
{
    Starfield empty(0);
    renderAt(empty, 3 * kMinute);
    const std::vector<uint8_t> skyOnly = readTarget();

    Starfield full(512);
    full.drawStars = 0;
    renderAt(full, 3 * kMinute);
    EXPECT_EQ(readTarget(), skyOnly);

    full.drawStars = 1;
    renderAt(full, 3 * kMinute);
    EXPECT_NE(readTarget(), skyOnly);
    keepPicture("starfield_game_frame");
}

TEST_F(StarfieldPixelTest, AStarIsDrawnOnceInScreenPixelsWhereverTheWorldCameraIs)
{
    Starfield field(1);
    field.drawSky = 0;
    field.stars[0] = Starfield::Star{300.0f, 200.0f, 1.0f, 255, 255, 255, 255, 1.0f, 1.0f};

    renderAt(field, 0);
    const LitArea centre = WindowPixels(kWidth, kHeight).lit();
    ASSERT_GT(centre.count, 0);
    // Inside the star's 32 x 15 quad round (300, 200).
    EXPECT_GE(centre.left, 284);
    EXPECT_LE(centre.right, 316);
    EXPECT_GE(centre.top, 192);
    EXPECT_LE(centre.bottom, 208);
    const Pixel middle = WindowPixels(kWidth, kHeight).at(300, 200);

    // Near the world's corner the view has wrapped copies; the star is still drawn once, as
    // bright as before, in the same place.
    scene->camera.x = 10.0f;
    scene->camera.y = 10.0f;
    scene->camera.zoom = 0.9f;
    renderAt(field, 0);
    const WindowPixels corner(kWidth, kHeight);
    const LitArea wrapped = corner.lit();
    EXPECT_EQ(wrapped.count, centre.count);
    EXPECT_EQ(wrapped.left, centre.left);
    EXPECT_EQ(wrapped.top, centre.top);
    EXPECT_EQ(corner.at(300, 200).r, middle.r);
}

namespace {

// Brightness of the window's pixels, read once.
class Luma {
public:
    Luma() : pixels(kWindowWidth, kWindowHeight) {}
    float at(float x, float y) const
    {
        const Pixel p = pixels.at(int(std::lround(x)), int(std::lround(y)));
        return (p.r + p.g + p.b) / 3.0f;
    }

private:
    WindowPixels pixels;
};

struct Point {
    float x, y;
};

// How sharply the picture changes across a line through the samples, shifted by offset
// pixels along its normal: at each sample the step across the line plus the line's
// difference from both sides, so a seam shows whether it is a step or a thin line. The
// median, so that the painted stars the line happens to cross do not count.
float contrastAcross(const Luma& luma, const std::vector<Point>& samples, const std::vector<Point>& normals, float offset)
{
    std::vector<float> contrast;
    for (size_t i = 0; i < samples.size(); ++i) {
        const Point n = normals[i];
        const float x = samples[i].x + n.x * offset, y = samples[i].y + n.y * offset;
        const float before = luma.at(x - 2.0f * n.x, y - 2.0f * n.y);
        const float after = luma.at(x + 2.0f * n.x, y + 2.0f * n.y);
        const float on = luma.at(x, y);
        contrast.push_back(std::fabs(after - before) + std::fabs(on - (before + after) / 2.0f));
    }
    if (contrast.empty()) return 0.0f;
    std::nth_element(contrast.begin(), contrast.begin() + contrast.size() / 2, contrast.end());
    return contrast[contrast.size() / 2];
}

// Where a point of the sky box lands in the window, rows counted from the top.
bool project(const vorlik::mat4& toClip, const vec3& p, Point& out)
{
    const vec4 c = toClip * vec4(p.x, p.y, p.z, 1.0f);
    if (c.w <= 0.0f) return false;
    out.x = (c.x / c.w + 1.0f) / 2.0f * kWindowWidth;
    out.y = (1.0f - c.y / c.w) / 2.0f * kWindowHeight;
    return true;
}

} // namespace

TEST_F(StarfieldPixelTest, SkyShowsNoSeamAlongTheCubeEdgesInView)
{
    // The camera looks straight at each corner of the tilted box in turn; the corner's three
    // edges run out from the middle of the window. Along each, the picture must change no
    // more sharply than along lines a little way inside either face. This catches a face put
    // on the wrong way round; the faces' edge sampling is checked on the engine's own test
    // sky, where a blend of half a texel with the far side shows plainly.
    constexpr float kMarginPixels = 12.0f;
    constexpr float kInsideOffset = 10.0f; // pixels from the edge to the comparison lines
    const Starfield field(0);
    const SkyBox& sky = field.sky;
    int corners = 0;
    for (int cx = -1; cx <= 1; cx += 2)
        for (int cy = -1; cy <= 1; cy += 2)
            for (int cz = -1; cz <= 1; cz += 2) {
                const vec3 corner = vec3(float(cx), float(cy), float(cz)) * SkyBox::kHalfSize;
                const vec4 d = sky.tiltMatrix() * vec4(corner.x, corner.y, corner.z, 0.0f);
                Camera camera;
                camera.fieldOfView = Starfield::kSkyFieldOfView;
                camera.target = vec3(d.x, d.y, d.z);

                pixelprobe::resetWindow(kWidth, kHeight);
                glEnable(GL_TEXTURE_2D);
                glEnable(GL_BLEND);
                glBlendFunc(GL_SRC_ALPHA, GL_ONE);
                camera.apply(Camera::kApplyAll);
                Shaders::useTextured();
                sky.draw(camera);
                const Luma luma;
                char name[32];
                std::snprintf(name, sizeof name, "sky_corner_%d", corners++);
                keepPicture(name);

                const vorlik::mat4 toClip = camera.projection(float(kWidth) / kHeight) *
                                            camera.modelView(Camera::kApplyRotation) * sky.tiltMatrix();
                const vec3 axes[3] = {vec3(-2.0f * cx, 0, 0), vec3(0, -2.0f * cy, 0), vec3(0, 0, -2.0f * cz)};
                for (const vec3& axis : axes) {
                    std::vector<Point> samples, normals;
                    for (int k = 1; k < 200; ++k) {
                        const float along = k / 400.0f;
                        Point p, q;
                        if (!project(toClip, corner + axis * (along * SkyBox::kHalfSize), p) ||
                            !project(toClip, corner + axis * ((along + 0.001f) * SkyBox::kHalfSize), q))
                            continue;
                        if (p.x < kMarginPixels || p.y < kMarginPixels || p.x > kWidth - kMarginPixels ||
                            p.y > kHeight - kMarginPixels)
                            continue;
                        const float dx = q.x - p.x, dy = q.y - p.y, length = std::hypot(dx, dy);
                        if (length == 0.0f) continue;
                        samples.push_back(p);
                        normals.push_back(Point{-dy / length, dx / length});
                    }
                    ASSERT_GT(samples.size(), 50u) << "an edge of corner " << corners - 1 << " is out of view";
                    const float edge = contrastAcross(luma, samples, normals, 0.0f);
                    const float inside = std::max(contrastAcross(luma, samples, normals, kInsideOffset),
                                                  contrastAcross(luma, samples, normals, -kInsideOffset));
                    EXPECT_LE(edge, 1.5f * inside + 2.0f) << "corner " << corners - 1 << ": " << edge << " at the edge, " << inside << " inside";
                }
            }
    glDisable(GL_TEXTURE_2D);
}
