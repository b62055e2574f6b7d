#include "core/Rng.h"

#include <gtest/gtest.h>

using assetgen::Rng;

TEST(Rng, SameSeedSameSequence)
{
    Rng a(42), b(42), c(43);
    bool differs = false;
    for (int i = 0; i < 100; ++i) {
        uint64_t va = a.next();
        EXPECT_EQ(va, b.next());
        differs = differs || va != c.next();
    }
    EXPECT_TRUE(differs);
}

TEST(Rng, RangesStayInside)
{
    Rng r(7);
    for (int i = 0; i < 10000; ++i) {
        float u = r.unit();
        EXPECT_GE(u, 0.0f);
        EXPECT_LT(u, 1.0f);
        int k = r.range(3, 9);
        EXPECT_GE(k, 3);
        EXPECT_LT(k, 9);
    }
}
