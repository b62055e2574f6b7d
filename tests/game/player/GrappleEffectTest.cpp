// GrappleEffect: declared and never made. It stays abstract, since each kind of line would have
// to say how it draws, holds nothing beyond an effect's node, and its update changes nothing.
#include "player/GrappleEffect.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

static_assert(std::is_abstract_v<GrappleEffect>, "a grapple line must say how it draws");
static_assert(sizeof(GrappleEffect) == sizeof(Effect), "a grapple line holds nothing of its own");

// The smallest line that can be made: one that draws nothing.
class BareLine : public GrappleEffect {
public:
    void draw(const SceneState&) override {}
};

TEST(GrappleEffectTest, IsAnEffectWhoseUpdateChangesNothing)
{
    BareLine line;
    line.position = vorlik::vec3(12.0f, 34.0f, 0.0f);
    line.rotation = 45.0f;
    const uint32_t flags = line.flags;
    line.update();
    EXPECT_EQ(line.position.x, 12.0f);
    EXPECT_EQ(line.position.y, 34.0f);
    EXPECT_EQ(line.rotation, 45.0f);
    EXPECT_EQ(line.flags, flags);
    EXPECT_TRUE((line.flags & DRAW_UNTRANSFORMED) != 0);
}

} // namespace
