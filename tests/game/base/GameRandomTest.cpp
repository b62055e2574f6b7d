// The game's random generator as it stands before start-up reseeds it from the clock.
#include "base/GameRandom.h"

#include <gtest/gtest.h>

TEST(GameRandom, BuiltBeforeMainWithSeedD34DB33F)
{
    EXPECT_EQ(kStaticRandomSeed, 3545084735u);
    // Nothing in the tests draws from g_rand, so its tables are still those of the fixed seed.
    const vorlik::Random fresh(0xD34DB33Fu);
    EXPECT_EQ(g_rand.intCursor, 0);
    EXPECT_EQ(g_rand.floatCursor, 0);
    for (int i = 0; i < vorlik::Random::kTableSize; ++i) {
        ASSERT_EQ(g_rand.ints[i], fresh.ints[i]) << "slot " << i;
        ASSERT_EQ(g_rand.floats[i], fresh.floats[i]) << "slot " << i;
    }
}
