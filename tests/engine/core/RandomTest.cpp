#include "core/Random.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <type_traits>
#include <vector>

using namespace vorlik;

static_assert(!std::is_copy_constructible_v<Random>, "two generators must not share tables");
static_assert(!std::is_copy_assignable_v<Random>, "two generators must not share tables");

namespace {

constexpr int kSize = 65536;

// The generator written out again from its description, fed by the C library directly.
struct Reference {
    std::vector<int32_t> ints = std::vector<int32_t>(kSize);
    std::vector<float> floats = std::vector<float>(kSize);
    int intCursor = 0;
    int floatCursor = 0;

    explicit Reference(unsigned seed)
    {
        std::srand(seed);
        for (int i = 0; i < kSize; ++i) {
            ints[i] = std::rand() & 0x7FFFFFFF;
            floats[i] = static_cast<float>(std::rand() & 0x7FFFFFFF) * 4.656612873077393e-10f;
        }
    }
    int32_t next()
    {
        const int32_t v = ints[intCursor];
        ints[intCursor] = 2147483647 - v;
        intCursor = (intCursor + 1) % kSize;
        return v;
    }
    float nextFloat()
    {
        const float v = floats[floatCursor];
        floats[intCursor] = 1.0f - v;
        floatCursor = (floatCursor + 1) % kSize;
        return v;
    }
};

} // namespace

TEST(Random, TablesAlternateIntegerThenFloatDraws)
{
    const Random r(12345);
    std::srand(12345);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(r.ints[i], std::rand() & 0x7FFFFFFF) << i;
        EXPECT_EQ(r.floats[i], static_cast<float>(std::rand() & 0x7FFFFFFF) / 2147483648.0f) << i;
    }
    EXPECT_EQ(r.intCursor, 0);
    EXPECT_EQ(r.floatCursor, 0);
}

TEST(Random, StreamMatchesCLibraryReference)
{
    Random r(0xD34DB33F);
    Reference ref(0xD34DB33F);
    for (int i = 0; i < 300000; ++i) {
        if (i % 3 == 0) {
            ASSERT_EQ(r.nextFloat(), ref.nextFloat()) << "draw " << i;
        } else {
            ASSERT_EQ(r.next(), ref.next()) << "draw " << i;
        }
    }
}

TEST(Random, SeedingReseedsCLibraryGenerator)
{
    std::srand(77);
    for (int i = 0; i < 2 * kSize; ++i) std::rand();
    const int expected = std::rand();
    const Random r(77);
    EXPECT_EQ(std::rand(), expected);
}

TEST(Random, SeedRebuildsTablesAndRewindsCursors)
{
    Random r(5);
    const int32_t first = r.next();
    const float firstFloat = r.nextFloat();
    for (int i = 0; i < 1000; ++i) r.next();
    r.seed(5);
    EXPECT_EQ(r.intCursor, 0);
    EXPECT_EQ(r.floatCursor, 0);
    EXPECT_EQ(r.next(), first);
    EXPECT_EQ(r.nextFloat(), firstFloat);
}

TEST(Random, IntegersLieInPositiveRange)
{
    Random r(99);
    for (int i = 0; i < kSize; ++i) {
        const int32_t v = r.next();
        ASSERT_GE(v, 0);
        ASSERT_LE(v, 2147483647);
    }
}

TEST(Random, Integer65537IsComplementOfFirst)
{
    Random r(2024);
    const int32_t first = r.next();
    for (int i = 1; i < kSize; ++i) r.next();
    EXPECT_EQ(r.intCursor, 0);
    EXPECT_EQ(r.next(), 2147483647 - first);
}

TEST(Random, IntegerStreamRepeatsEvery131072)
{
    Random r(31);
    std::vector<int32_t> lap(kSize);
    for (int32_t& v : lap) v = r.next();
    for (int i = 0; i < kSize; ++i) ASSERT_EQ(r.next(), 2147483647 - lap[i]) << i;
    for (int i = 0; i < kSize; ++i) ASSERT_EQ(r.next(), lap[i]) << i;
}

TEST(Random, NextModuloN)
{
    Random r(8);
    Reference ref(8);
    for (int i = 0; i < 1000; ++i) {
        const int32_t v = r.next(7);
        ASSERT_EQ(v, ref.next() % 7);
        ASSERT_GE(v, 0);
        ASSERT_LT(v, 7);
    }
}

TEST(Random, RangeOfEqualBoundsConsumesNoDraw)
{
    Random r(3);
    Reference ref(3);
    EXPECT_EQ(r.range(5, 5), 5);
    EXPECT_EQ(r.intCursor, 0);
    EXPECT_EQ(r.next(), ref.next());
}

TEST(Random, RangeNeverYieldsUpperBound)
{
    Random r(4);
    std::set<int32_t> seen;
    for (int i = 0; i < 1000; ++i) {
        const int32_t v = r.range(0, 3);
        ASSERT_GE(v, 0);
        ASSERT_LT(v, 3);
        seen.insert(v);
    }
    EXPECT_EQ(seen.size(), 3u);
}

TEST(Random, RangeIsLowPlusRemainder)
{
    Random r(6);
    Reference ref(6);
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(r.range(-10, 25), -10 + ref.next() % 35);
}

TEST(Random, ReversedRangeGivesThreeToFive)
{
    Random r(11);
    Reference ref(11);
    std::set<int32_t> seen;
    for (int i = 0; i < 1000; ++i) {
        const int32_t v = r.range(3, 0);
        ASSERT_EQ(v, 3 + ref.next() % -3);
        ASSERT_GE(v, 3);
        ASSERT_LE(v, 5);
        seen.insert(v);
    }
    EXPECT_EQ(seen, (std::set<int32_t>{3, 4, 5}));
}

TEST(Random, FloatsOfFirstLapStayBelowOne)
{
    Random r(0xD34DB33F);
    for (int i = 0; i < kSize; ++i) {
        const float v = r.nextFloat();
        ASSERT_GE(v, 0.0f);
        ASSERT_LT(v, 1.0f) << "draw " << i;
    }
}

TEST(Random, ComplementedZeroMayReturnExactlyOne)
{
    Random r(1);
    r.floats[0] = 0.0f;
    EXPECT_EQ(r.nextFloat(), 0.0f); // stores 1 - 0 under the integer cursor, slot 0
    r.next();                       // later float draws now write into slot 1
    for (int i = 1; i < kSize; ++i) r.nextFloat();
    EXPECT_EQ(r.nextFloat(), 1.0f);
}

TEST(Random, FloatDrawWritesComplementIntoIntegerCursorSlot)
{
    Random r(17);
    for (int i = 0; i < 10; ++i) r.next();
    const float untouched = r.floats[0];
    const float first = r.nextFloat();
    EXPECT_EQ(first, untouched);
    EXPECT_EQ(r.floats[10], 1.0f - first);
    EXPECT_EQ(r.floats[0], untouched);
    // The float stream sees it when its own cursor gets there, unless a later float draw under
    // the same integer cursor overwrites it: one integer draw moves those writes to slot 11.
    r.next();
    for (int i = 1; i < 10; ++i) r.nextFloat();
    EXPECT_EQ(r.nextFloat(), 1.0f - first);
}

TEST(Random, ScaledAndRangedFloats)
{
    Random r(21);
    Reference ref(21);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(r.nextFloat(10.0f), ref.nextFloat() * 10.0f);
        ASSERT_EQ(r.range(-2.0f, 6.0f), -2.0f + ref.nextFloat() * 8.0f);
    }
}

TEST(Random, CursorsWrapAfterLastSlot)
{
    Random r(2);
    for (int i = 0; i < kSize - 1; ++i) {
        r.next();
        r.nextFloat();
    }
    EXPECT_EQ(r.intCursor, kSize - 1);
    EXPECT_EQ(r.floatCursor, kSize - 1);
    r.next();
    r.nextFloat();
    EXPECT_EQ(r.intCursor, 0);
    EXPECT_EQ(r.floatCursor, 0);
}

TEST(Random, InstancesKeepSeparateTables)
{
    Random a(9), b(9);
    for (int i = 0; i < 100; ++i) a.next();
    EXPECT_EQ(b.intCursor, 0);
    Reference ref(9);
    EXPECT_EQ(b.next(), ref.next());
}
