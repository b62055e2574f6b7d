#include "graphics/SkyBox.h"

#include "DisplayTest.h"
#include "graphics/Camera.h"
#include "graphics/Color.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"
#include "math/mat4.h"
#include "math/vec3.h"
#include "math/vec4.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

using vorlik::Camera;
using vorlik::SkyBox;
using vorlik::Texture;
using vorlik::mat4;
using vorlik::vec3;
using vorlik::vec4;

namespace {

// The sky pictures' convention: the direction through face coordinates s (-1 left .. 1 right)
// and t (-1 top .. 1 bottom) of a face seen upright from inside the cube.
vec3 conventionDirection(SkyBox::Face face, float s, float t)
{
    switch (face) {
    case SkyBox::FRONT: return vec3(s, -t, -1.0f);
    case SkyBox::RIGHT: return vec3(1.0f, -t, s);
    case SkyBox::BACK: return vec3(-s, -t, 1.0f);
    case SkyBox::LEFT: return vec3(-1.0f, -t, -s);
    case SkyBox::TOP: return vec3(s, 1.0f, -t);
    case SkyBox::BOTTOM: return vec3(s, -1.0f, t);
    default: return vec3();
    }
}

vec3 corner(const SkyBox::Quad& q, int i)
{
    return vec3(q.positions[3 * i], q.positions[3 * i + 1], q.positions[3 * i + 2]);
}

// Face coordinates of the quad's corners: top-left, top-right, bottom-right, bottom-left.
constexpr float kCornerS[4] = {-1.0f, 1.0f, 1.0f, -1.0f};
constexpr float kCornerT[4] = {-1.0f, -1.0f, 1.0f, 1.0f};

} // namespace

TEST(SkyBox, ShadeIsTwoHundredFiftyFiveTimesTheBrightnessTruncated)
{
    SkyBox sky;
    EXPECT_EQ(sky.shade(), 255);
    sky.brightness = 0.82f;
    EXPECT_EQ(sky.shade(), 209);
    sky.brightness = 1.5f;
    EXPECT_EQ(sky.shade(), 255);
    sky.brightness = -0.5f;
    EXPECT_EQ(sky.shade(), 0);
}

TEST(SkyBox, EveryFaceLiesWhereTheSkyPicturesExpectItUprightFromInside)
{
    for (int f = 0; f < SkyBox::kFaceCount; ++f) {
        const SkyBox::Face face = static_cast<SkyBox::Face>(f);
        const SkyBox::Quad q = SkyBox::faceQuad(face, 1.0f, 1.0f);
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(corner(q, i), conventionDirection(face, kCornerS[i], kCornerT[i]) * SkyBox::kHalfSize)
                << "face " << f << " corner " << i;
            EXPECT_EQ(q.texCoords[2 * i], (kCornerS[i] + 1.0f) / 2.0f);
            EXPECT_EQ(q.texCoords[2 * i + 1], (kCornerT[i] + 1.0f) / 2.0f);
        }
    }
}

TEST(SkyBox, TheSixFacesCloseTheCubeEachEdgeSharedByTwo)
{
    std::vector<std::pair<vec3, vec3>> edges;
    for (int f = 0; f < SkyBox::kFaceCount; ++f) {
        const SkyBox::Quad q = SkyBox::faceQuad(static_cast<SkyBox::Face>(f), 1.0f, 1.0f);
        for (int i = 0; i < 4; ++i) edges.emplace_back(corner(q, i), corner(q, (i + 1) % 4));
    }
    for (const auto& e : edges) {
        int shared = 0;
        for (const auto& o : edges)
            if ((o.first == e.first && o.second == e.second) || (o.first == e.second && o.second == e.first)) ++shared;
        EXPECT_EQ(shared, 2);
    }
}

TEST(SkyBox, TextureCoordinatesReachThePartOfAPaddedPicture)
{
    const SkyBox::Quad q = SkyBox::faceQuad(SkyBox::TOP, 0.5f, 0.25f);
    const float expected[8] = {0.0f, 0.0f, 0.5f, 0.0f, 0.5f, 0.25f, 0.0f, 0.25f};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(q.texCoords[i], expected[i]);
}

TEST(SkyBox, TiltsTurnAboutXFirstThenYThenZ)
{
    SkyBox sky;
    sky.tiltX = 90.0f;
    sky.tiltZ = 90.0f;
    // Up turned about x lands on +z, which the turn about z leaves alone; z first would have
    // sent it to -x.
    const vec4 p = sky.tiltMatrix() * vec4(0.0f, 1.0f, 0.0f, 1.0f);
    EXPECT_NEAR(p.x, 0.0f, 1e-6f);
    EXPECT_NEAR(p.y, 0.0f, 1e-6f);
    EXPECT_NEAR(p.z, 1.0f, 1e-6f);
}

namespace {

constexpr int kFaceTexels = 64;
constexpr int kLowest = 60;   // every channel of the test sky lies in 60 .. 240
constexpr int kSpread = 90;

// A sky whose colour is a smooth function of the direction, made on the six faces by the
// pictures' convention (the first and last texel of a row on the cube's edges). Drawn
// correctly it has no edge anywhere; any seam shows as a jump between neighbouring pixels.
class SkyBoxDrawTest : public CleanWindowTest {
protected:
    void SetUp() override
    {
        CleanWindowTest::SetUp();
        if (IsSkipped()) return;
        for (int f = 0; f < SkyBox::kFaceCount; ++f) {
            vorlik::Image image(kFaceTexels, kFaceTexels);
            for (int y = 0; y < kFaceTexels; ++y)
                for (int x = 0; x < kFaceTexels; ++x) {
                    const float s = -1.0f + 2.0f * x / (kFaceTexels - 1);
                    const float t = -1.0f + 2.0f * y / (kFaceTexels - 1);
                    const vec3 d = conventionDirection(static_cast<SkyBox::Face>(f), s, t).normalized();
                    image.setPixel(x, y, vorlik::Color::pack(channel(d.x), channel(d.y), channel(d.z), 255));
                }
            textures[f].reset(new Texture(&image));
            sky.faces[f] = textures[f].get();
        }
        sky.tiltX = 7.0f;
        sky.tiltZ = 56.0f;
        glEnable(GL_TEXTURE_2D);
    }
    void TearDown() override { glDisable(GL_TEXTURE_2D); }

    static uint16_t channel(float component)
    {
        return static_cast<uint16_t>(std::lround(kLowest + kSpread * (component + 1.0f)));
    }

    // A camera at position looking along the box's own direction d (turned by the tilts).
    Camera lookingAlong(const vec3& d, const vec3& position = vec3()) const
    {
        const vec4 turned = sky.tiltMatrix() * vec4(d.x, d.y, d.z, 0.0f);
        Camera c;
        c.fieldOfView = 50.0f;
        c.position = position;
        c.target = position + vec3(turned.x, turned.y, turned.z);
        return c;
    }

    std::vector<uint8_t> drawAndRead(const Camera& camera)
    {
        glClear(GL_COLOR_BUFFER_BIT);
        sky.draw(camera);
        std::vector<uint8_t> rgba(size_t(kWidth) * kHeight * 4);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        return rgba;
    }

    // The largest difference of one channel between two pixels side by side or one above
    // the other.
    static int largestStep(const std::vector<uint8_t>& rgba)
    {
        int largest = 0;
        for (int y = 0; y + 1 < kHeight; ++y)
            for (int x = 0; x + 1 < kWidth; ++x) {
                const uint8_t* p = &rgba[(size_t(y) * kWidth + x) * 4];
                const uint8_t* right = p + 4;
                const uint8_t* above = p + size_t(kWidth) * 4;
                for (int c = 0; c < 3; ++c) {
                    largest = std::max(largest, std::abs(p[c] - right[c]));
                    largest = std::max(largest, std::abs(p[c] - above[c]));
                }
            }
        return largest;
    }

    static int darkestChannel(const std::vector<uint8_t>& rgba)
    {
        int darkest = 255;
        for (size_t i = 0; i < rgba.size(); i += 4) darkest = std::min({darkest, int(rgba[i]), int(rgba[i + 1]), int(rgba[i + 2])});
        return darkest;
    }

    SkyBox sky;
    std::unique_ptr<Texture> textures[SkyBox::kFaceCount];
};

// The cube's eight corners, the middles of its twelve edges and its six face centres.
std::vector<vec3> viewDirections()
{
    std::vector<vec3> directions;
    for (int x = -1; x <= 1; ++x)
        for (int y = -1; y <= 1; ++y)
            for (int z = -1; z <= 1; ++z)
                if (x != 0 || y != 0 || z != 0) directions.emplace_back(float(x), float(y), float(z));
    return directions;
}

} // namespace

TEST_F(SkyBoxDrawTest, CoversTheWholeWindowWhereverTheCameraLooks)
{
    for (const vec3& d : viewDirections())
        EXPECT_GE(darkestChannel(drawAndRead(lookingAlong(d))), kLowest - 2)
            << "looking along (" << d.x << ", " << d.y << ", " << d.z << ")";
}

TEST_F(SkyBoxDrawTest, ShowsNoSeamAcrossItsEdgesAndCorners)
{
    // Across the window the test sky changes by well under one step a pixel; a face edge
    // sampled past its last texel (wrapping round to the far side of the picture) jumps by
    // tens of steps.
    constexpr int kSmoothStep = 4;
    for (const vec3& d : viewDirections())
        EXPECT_LE(largestStep(drawAndRead(lookingAlong(d))), kSmoothStep)
            << "looking along (" << d.x << ", " << d.y << ", " << d.z << ")";
}

TEST_F(SkyBoxDrawTest, FacesAreSampledClampedToTheirEdges)
{
    drawAndRead(lookingAlong(vec3(0.0f, 0.0f, -1.0f)));
    for (const auto& texture : textures) {
        texture->bind(GL_TEXTURE0);
        GLint s = 0, t = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, &s);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &t);
        EXPECT_EQ(s, GL_CLAMP_TO_EDGE);
        EXPECT_EQ(t, GL_CLAMP_TO_EDGE);
    }
}

TEST_F(SkyBoxDrawTest, TheCameraPositionDoesNotMoveTheBox)
{
    // Untilted, the two lines of sight are exactly the same vector.
    sky.tiltX = sky.tiltZ = 0.0f;
    const vec3 d(1.0f, 0.5f, -2.0f);
    const bool same = drawAndRead(lookingAlong(d)) == drawAndRead(lookingAlong(d, vec3(40.0f, -30.0f, 12.0f)));
    EXPECT_TRUE(same);
}

TEST_F(SkyBoxDrawTest, RestoresTheModelViewAndKeepsTheCameraProjection)
{
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(1.0f, 2.0f, 3.0f);
    mat4 before;
    glGetFloatv(GL_MODELVIEW_MATRIX, before.m);
    const Camera camera = lookingAlong(vec3(0.0f, 0.0f, -1.0f));
    drawAndRead(camera);
    mat4 after, projection;
    glGetFloatv(GL_MODELVIEW_MATRIX, after.m);
    glGetFloatv(GL_PROJECTION_MATRIX, projection.m);
    EXPECT_EQ(after, before);
    const mat4 expected = camera.projection(static_cast<float>(kWidth) / kHeight);
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(projection.m[i], expected.m[i], 1e-5f);
}

TEST_F(SkyBoxDrawTest, SkipsFacesWithoutAPicture)
{
    for (int f = 0; f < SkyBox::kFaceCount; ++f)
        if (f != SkyBox::FRONT) sky.faces[f] = nullptr;
    sky.tiltX = sky.tiltZ = 0.0f;
    const size_t centre = (size_t(kHeight / 2) * kWidth + kWidth / 2) * 4;
    EXPECT_GE(drawAndRead(lookingAlong(vec3(0.0f, 0.0f, -1.0f)))[centre], kLowest);
    EXPECT_EQ(drawAndRead(lookingAlong(vec3(0.0f, 0.0f, 1.0f)))[centre], 0);
}
