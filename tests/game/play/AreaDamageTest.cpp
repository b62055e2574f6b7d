// The session's blast: every enemy with a wrap image inside the radius explodes, walked in list
// order with the swap-remove's skip kept.
#include "WeaponTestDoubles.h"

#include <gtest/gtest.h>

namespace {

class AreaDamageTest : public WeaponTest {};

bool alive(const TargetShip* ship)
{
    for (Enemy* e : g_game->enemies)
        if (e == ship) return true;
    return false;
}

TEST_F(AreaDamageTest, EnemiesInsideTheRadiusExplodeAndOnesAtOrBeyondItSurvive)
{
    TargetShip* near = target(vorlik::vec2(1000, 1000), 20, 50);
    TargetShip* edge = target(vorlik::vec2(1100, 1000), 20, 50);
    TargetShip* far = target(vorlik::vec2(1500, 1000), 20, 50);
    g_game->areaDamage(vorlik::vec2(1000, 1000), 100);
    EXPECT_FALSE(alive(near));
    EXPECT_TRUE(alive(edge)); // exactly at the radius: not below it
    EXPECT_TRUE(alive(far));
}

TEST_F(AreaDamageTest, AnEnemyIsReachedThroughItsWrapImage)
{
    TargetShip* across = target(vorlik::vec2(4090, 20), 20, 50);
    g_game->areaDamage(vorlik::vec2(10, 10), 50);
    EXPECT_FALSE(alive(across));
}

TEST_F(AreaDamageTest, TheEnemyMovedIntoAnExplodedOnesSlotEscapesTheBlast)
{
    TargetShip* first = target(vorlik::vec2(1000, 1000), 20, 50);
    TargetShip* outside = target(vorlik::vec2(3000, 3000), 20, 50);
    TargetShip* last = target(vorlik::vec2(1010, 1000), 20, 50);
    g_game->areaDamage(vorlik::vec2(1000, 1000), 100);
    EXPECT_FALSE(alive(first));
    EXPECT_TRUE(alive(outside));
    EXPECT_TRUE(alive(last)); // moved into slot 0 after the walk had passed it
    ASSERT_EQ(g_game->enemies.count, 2u);
    EXPECT_EQ(g_game->enemies[0], last);
}

} // namespace
