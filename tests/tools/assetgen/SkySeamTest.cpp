// The six sky faces meet without a seam: along each of the cube's twelve edges the two
// faces that share it hold the same colours. The faces are laid out as an unfolded cross
// seen from inside: left, front, right, back in a row (each right edge meets the next
// face's left edge, back wraps to left), top above front and bottom below front.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <string>

#include "RunDirFiles.h"

using testing_assets::gfxPath;
using testing_assets::loadPng;
using testing_assets::Rgba;

namespace {

enum class Side { Top, Bottom, Left, Right };

// The i-th texel along one side of a face: top and bottom run left to right, left and
// right run top to bottom.
const uint8_t* edgeTexel(const Rgba& f, Side side, int i)
{
    switch (side) {
    case Side::Top: return f.at(i, 0);
    case Side::Bottom: return f.at(i, f.height - 1);
    case Side::Left: return f.at(0, i);
    case Side::Right: return f.at(f.width - 1, i);
    }
    return f.at(0, 0);
}

struct Edge {
    const char* a;
    Side sideA;
    const char* b;
    Side sideB;
    bool reversed;
};

const Edge kEdges[] = {
    {"sky_front", Side::Right, "sky_right", Side::Left, false},
    {"sky_right", Side::Right, "sky_back", Side::Left, false},
    {"sky_back", Side::Right, "sky_left", Side::Left, false},
    {"sky_left", Side::Right, "sky_front", Side::Left, false},
    {"sky_top", Side::Bottom, "sky_front", Side::Top, false},
    {"sky_top", Side::Right, "sky_right", Side::Top, true},
    {"sky_top", Side::Left, "sky_left", Side::Top, false},
    {"sky_top", Side::Top, "sky_back", Side::Top, true},
    {"sky_bottom", Side::Top, "sky_front", Side::Bottom, false},
    {"sky_bottom", Side::Right, "sky_right", Side::Bottom, false},
    {"sky_bottom", Side::Left, "sky_left", Side::Bottom, true},
    {"sky_bottom", Side::Bottom, "sky_back", Side::Bottom, true},
};

} // namespace

TEST(SkySeams, SharedEdgesAgree)
{
    for (const Edge& e : kEdges) {
        Rgba a = loadPng(gfxPath(e.a)), b = loadPng(gfxPath(e.b));
        ASSERT_TRUE(a.valid() && b.valid());
        ASSERT_EQ(a.width, b.width);
        const int n = a.width;
        long total = 0;
        int worst = 0;
        for (int i = 0; i < n; ++i) {
            const uint8_t* pa = edgeTexel(a, e.sideA, i);
            const uint8_t* pb = edgeTexel(b, e.sideB, e.reversed ? n - 1 - i : i);
            for (int c = 0; c < 3; ++c) {
                int d = std::abs(pa[c] - pb[c]);
                total += d;
                worst = std::max(worst, d);
            }
        }
        EXPECT_LE(static_cast<double>(total) / (3.0 * n), 0.5) << e.a << " / " << e.b;
        EXPECT_LE(worst, 12) << e.a << " / " << e.b;
    }
}

TEST(SkySeams, MismatchedEdgesDoNotAgree)
{
    // The check above must be able to fail: two edges that do not meet differ clearly.
    Rgba front = loadPng(gfxPath("sky_front")), back = loadPng(gfxPath("sky_back"));
    ASSERT_TRUE(front.valid() && back.valid());
    long total = 0;
    for (int i = 0; i < front.height; ++i)
        for (int c = 0; c < 3; ++c)
            total += std::abs(edgeTexel(front, Side::Right, i)[c] - edgeTexel(back, Side::Right, i)[c]);
    EXPECT_GT(static_cast<double>(total) / (3.0 * front.height), 1.0);
}

TEST(SkySeams, SkyStaysDark)
{
    // The game adds the sky behind everything: most of it must stay near black.
    for (const char* name : {"sky_front", "sky_back", "sky_left", "sky_right", "sky_top", "sky_bottom"}) {
        Rgba f = loadPng(gfxPath(name));
        ASSERT_TRUE(f.valid());
        double sum = 0;
        for (int y = 0; y < f.height; ++y)
            for (int x = 0; x < f.width; ++x)
                sum += (f.at(x, y)[0] + f.at(x, y)[1] + f.at(x, y)[2]) / 3.0;
        double mean = sum / (static_cast<double>(f.width) * f.height);
        EXPECT_LT(mean, 40) << name;
        EXPECT_GT(mean, 1) << name;
    }
}
