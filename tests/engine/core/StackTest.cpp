#include "core/Stack.h"

#include <gtest/gtest.h>

#include "math/mat2.h"
#include "math/vec2.h"

using namespace vorlik;

namespace {

template <typename T> bool allZeroBytes(const T* block, uint32_t elements)
{
    const unsigned char* bytes = reinterpret_cast<const unsigned char*>(block);
    for (size_t i = 0; i < sizeof(T) * elements; ++i)
        if (bytes[i] != 0) return false;
    return true;
}

} // namespace

TEST(Stack, FreshStackHasCapacity16AndZeroedBlockWithSpare)
{
    Stack<int> s;
    EXPECT_EQ(s.capacity, 16u);
    EXPECT_EQ(s.count, 0u);
    EXPECT_EQ(s.size(), 0u);
    EXPECT_TRUE(s.empty());
    EXPECT_TRUE(allZeroBytes(s.data, 17));
}

TEST(Stack, PushAppendsInOrder)
{
    Stack<int> s;
    for (int i = 0; i < 5; ++i) s.push(i * 10);
    EXPECT_EQ(s.count, 5u);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(s[i], i * 10);
    EXPECT_EQ(s.data[2], 20);
}

TEST(Stack, SeventeenthPushDoublesTo32AndKeepsFirst16)
{
    Stack<int> s;
    for (int i = 0; i < 16; ++i) s.push(100 + i);
    EXPECT_EQ(s.capacity, 16u);
    const int* before = s.data;
    s.push(116);
    EXPECT_EQ(s.capacity, 32u);
    EXPECT_EQ(s.count, 17u);
    EXPECT_NE(s.data, before);
    for (int i = 0; i < 17; ++i) EXPECT_EQ(s[i], 100 + i);
    // The rest of the new block, spare element included, is zero.
    EXPECT_TRUE(allZeroBytes(s.data + 17, 16));
}

TEST(Stack, PushOfOwnElementWhenFullKeepsItsValue)
{
    // Growing frees the block the pushed reference points into.
    Stack<mat2> s(2);
    s.push(mat2(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f));
    s.push(mat2(7.0f, 8.0f, 9.0f, 10.0f, 11.0f, 12.0f));
    s.push(s[0]);
    EXPECT_EQ(s.capacity, 4u);
    EXPECT_EQ(s[2], mat2(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f));
    s.push(s[1]);
    s.push(s[3]);
    EXPECT_EQ(s.capacity, 8u);
    EXPECT_EQ(s[4], mat2(7.0f, 8.0f, 9.0f, 10.0f, 11.0f, 12.0f));
}

TEST(Stack, GrowthKeepsDoubling)
{
    Stack<int> s;
    for (int i = 0; i < 65; ++i) s.push(i);
    EXPECT_EQ(s.capacity, 128u);
    for (int i = 0; i < 65; ++i) EXPECT_EQ(s[i], i);
}

TEST(Stack, InitialCapacityIsHonoured)
{
    Stack<float> s(128);
    EXPECT_EQ(s.capacity, 128u);
    EXPECT_TRUE(allZeroBytes(s.data, 129));
    for (int i = 0; i < 129; ++i) s.push(0.5f);
    EXPECT_EQ(s.capacity, 256u);
}

TEST(Stack, EmptyCapacityStartsGrowingAtOne)
{
    Stack<int> s(0);
    s.push(7);
    EXPECT_EQ(s.capacity, 1u);
    s.push(8);
    s.push(9);
    EXPECT_EQ(s.capacity, 4u);
    EXPECT_EQ(s[0], 7);
    EXPECT_EQ(s[2], 9);
}

TEST(Stack, ReserveGrowsKeepingElementsAndNeverShrinks)
{
    Stack<int> s(4);
    s.push(1);
    s.push(2);
    s.reserve(40);
    EXPECT_EQ(s.capacity, 40u);
    EXPECT_EQ(s.count, 2u);
    EXPECT_EQ(s[1], 2);
    EXPECT_TRUE(allZeroBytes(s.data + 2, 39));
    s.reserve(8);
    EXPECT_EQ(s.capacity, 40u);
}

TEST(Stack, ClearKeepsTheBlock)
{
    Stack<int> s;
    for (int i = 0; i < 20; ++i) s.push(i);
    s.clear();
    EXPECT_EQ(s.count, 0u);
    EXPECT_EQ(s.capacity, 32u);
    s.push(5);
    EXPECT_EQ(s[0], 5);
}

TEST(Stack, ElementsAreCopiedBytewiseIncludingZeroedMatrices)
{
    Stack<mat2> s(2);
    // A calloc'd element is all zeros, not the identity a constructor would give.
    EXPECT_EQ(s.data[0], mat2(0.0f, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f));
    s.push(mat2(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f));
    s.push(mat2());
    s.push(mat2(6.0f, 5.0f, 4.0f, 3.0f, 2.0f, 1.0f));
    EXPECT_EQ(s[0], mat2(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f));
    EXPECT_EQ(s[1], mat2());
    EXPECT_EQ(s[2], mat2(6.0f, 5.0f, 4.0f, 3.0f, 2.0f, 1.0f));
}

TEST(Stack, CopyIsDeep)
{
    Stack<vec2> a;
    a.push(vec2(1.0f, 2.0f));
    Stack<vec2> b(a);
    b[0] = vec2(9.0f, 9.0f);
    b.push(vec2(3.0f, 4.0f));
    EXPECT_EQ(a[0], vec2(1.0f, 2.0f));
    EXPECT_EQ(a.count, 1u);
    EXPECT_EQ(b.count, 2u);
    EXPECT_NE(a.data, b.data);
}

TEST(Stack, AssignmentIsDeepAndSelfSafe)
{
    Stack<int> a, b(4);
    a.push(1);
    b.push(2);
    b.push(3);
    a = b;
    EXPECT_EQ(a.count, 2u);
    EXPECT_EQ(a.capacity, 4u);
    EXPECT_EQ(a[1], 3);
    EXPECT_NE(a.data, b.data);
    const Stack<int>& same = a;
    a = same;
    EXPECT_EQ(a[0], 2);
}

TEST(Stack, IteratesOverElementsInUse)
{
    Stack<int> s;
    s.push(1);
    s.push(2);
    s.push(3);
    int sum = 0;
    for (int v : s) sum += v;
    EXPECT_EQ(sum, 6);
}

TEST(Stack, PopReturnsTheTopAndShrinksTheCount)
{
    Stack<int> s;
    s.push(1);
    s.push(2);
    s.push(3);
    EXPECT_EQ(s.pop(), 3);
    EXPECT_EQ(s.count, 2u);
    EXPECT_EQ(s.pop(), 2);
    s.push(4);
    EXPECT_EQ(s.pop(), 4);
    EXPECT_EQ(s.pop(), 1);
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.capacity, 16u);
}

TEST(Stack, PopOfEmptyStackGivesZeroBytesAndStaysEmpty)
{
    Stack<mat2> s(2);
    s.push(mat2(1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f));
    s.pop();
    // The popped element is still in the block; an extra pop must not hand it out again.
    const mat2 extra = s.pop();
    EXPECT_TRUE(allZeroBytes(&extra, 1));
    EXPECT_EQ(s.count, 0u);
    const mat2 another = s.pop();
    EXPECT_TRUE(allZeroBytes(&another, 1));
    EXPECT_EQ(s.count, 0u);
    s.push(mat2());
    EXPECT_EQ(s.count, 1u);
    EXPECT_EQ(s[0], mat2());
}

TEST(Stack, PopAfterGrowthKeepsOrder)
{
    Stack<int> s(0);
    for (int i = 0; i < 40; ++i) s.push(i);
    for (int i = 39; i >= 0; --i) ASSERT_EQ(s.pop(), i);
    EXPECT_EQ(s.pop(), 0);
    EXPECT_EQ(s.count, 0u);
}
