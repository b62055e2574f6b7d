#include "core/String.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace vorlik;

TEST(String, DefaultIsEmptyWithCapacityZero)
{
    String s;
    ASSERT_NE(s.data, nullptr);
    EXPECT_EQ(s.capacity, 0u);
    EXPECT_EQ(s.length, 0u);
    EXPECT_EQ(s.data[0], 0);
    EXPECT_TRUE(s.empty());
}

TEST(String, FromTextHasCapacityLengthPlusOne)
{
    String s("hello");
    EXPECT_EQ(s.length, 5u);
    EXPECT_EQ(s.size(), 5u);
    EXPECT_EQ(s.capacity, 6u);
    EXPECT_STREQ(s.data, "hello");
    EXPECT_EQ(s.data[6], 0);
}

TEST(String, FromNullTextIsEmpty)
{
    String s(static_cast<const char*>(nullptr));
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.data[0], 0);
}

TEST(String, CopyHasCapacityOtherLengthPlusOne)
{
    String a("abc");
    a.reserve(50);
    String b(a);
    EXPECT_EQ(b.capacity, 4u);
    EXPECT_EQ(b.length, 3u);
    EXPECT_STREQ(b.data, "abc");
    EXPECT_NE(a.data, b.data);
}

TEST(String, FromOneCharacter)
{
    String s('x');
    EXPECT_EQ(s.length, 1u);
    EXPECT_STREQ(s.data, "x");
}

TEST(String, ReserveGrowsAndKeepsText)
{
    String s("abc");
    s.reserve(20);
    EXPECT_EQ(s.capacity, 20u);
    EXPECT_STREQ(s.data, "abc");
    s.reserve(5);
    EXPECT_EQ(s.capacity, 20u);
}

TEST(String, AssignLongerTextGrowsToLengthPlusOne)
{
    String s("ab");
    s = "abcdefgh";
    EXPECT_EQ(s.capacity, 9u);
    EXPECT_EQ(s.length, 8u);
    EXPECT_STREQ(s.data, "abcdefgh");
}

TEST(String, AssignShorterTextKeepsBlock)
{
    String s("abcdefgh");
    const char* block = s.data;
    s = "xy";
    EXPECT_EQ(s.data, block);
    EXPECT_EQ(s.capacity, 9u);
    EXPECT_EQ(s.length, 2u);
    EXPECT_STREQ(s.data, "xy");
}

TEST(String, AssignStringAndSelf)
{
    String s("one");
    const String t("three");
    s = t;
    EXPECT_EQ(s, "three");
    s = s;
    EXPECT_EQ(s, "three");
    s = s.data + 2;
    EXPECT_EQ(s, "ree");
}

TEST(String, AppendTextGrowsToExactLengthPlusOne)
{
    String s("abc");
    s += "de";
    EXPECT_EQ(s.capacity, 6u);
    EXPECT_EQ(s.length, 5u);
    EXPECT_STREQ(s.data, "abcde");
    s.reserve(20);
    s += "fg";
    EXPECT_EQ(s.capacity, 20u);
    EXPECT_STREQ(s.data, "abcdefg");
}

TEST(String, AppendStringAndItself)
{
    String s("ab");
    s += String("cd");
    EXPECT_EQ(s, "abcd");
    s += s;
    EXPECT_EQ(s, "abcdabcd");
    s.reserve(40);
    s += s;
    EXPECT_EQ(s, "abcdabcdabcdabcd");
}

TEST(String, AppendCharGrowsEightAtATime)
{
    String s("abc");
    s += 'd';
    EXPECT_EQ(s.capacity, 12u);
    EXPECT_EQ(s.length, 4u);
    EXPECT_STREQ(s.data, "abcd");
    for (char c = 'e'; c <= 'k'; ++c) s += c;
    EXPECT_EQ(s.capacity, 12u);
    EXPECT_STREQ(s.data, "abcdefghijk");
    s += 'l';
    EXPECT_EQ(s.capacity, 20u);
    EXPECT_STREQ(s.data, "abcdefghijkl");
}

TEST(String, AppendCharTerminatesInsideReusedBlock)
{
    String s("hello");
    s = "hi";
    s += 'x';
    EXPECT_STREQ(s.data, "hix");
}

TEST(String, AppendCharAtFullCapacityLandsInTerminatorSlotUnterminated)
{
    String s("abc");
    s = "abcd"; // length 4 reaches capacity 4 without growing
    ASSERT_EQ(s.capacity, 4u);
    s += 'e';
    EXPECT_EQ(s.capacity, 4u);
    EXPECT_EQ(s.length, 5u);
    EXPECT_EQ(s.data[4], 'e');
    EXPECT_EQ(s[4], 'e');
    EXPECT_EQ(s[100], 'e');
    EXPECT_TRUE(s == "abcde");
}

TEST(String, AppendCharToDefaultStringUsesItsOnlyByte)
{
    String s;
    s += 'q';
    EXPECT_EQ(s.capacity, 0u);
    EXPECT_EQ(s.length, 1u);
    EXPECT_EQ(s.data[0], 'q');
}

TEST(String, ClearShrinksToFourKeepingFirstBytes)
{
    String s("hello world");
    s.clear();
    EXPECT_EQ(s.length, 0u);
    EXPECT_EQ(s.capacity, 4u);
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(std::memcmp(s.data, "hell", 4), 0);
    EXPECT_EQ(s.data[4], 0);
    s += "ab";
    EXPECT_STREQ(s.data, "ab");
    String shortOne("a");
    shortOne.clear();
    EXPECT_EQ(std::memcmp(shortOne.data, "a\0\0\0\0", 5), 0);
}

TEST(String, IndexPastCapacityReadsTerminatorSlot)
{
    String s;
    s.reserve(10);
    s = "abc";
    ASSERT_EQ(s.capacity, 10u);
    EXPECT_EQ(s[1], 'b');
    EXPECT_EQ(s[100], 0);
    s.data[10] = '#';
    s.data[9] = '9';
    EXPECT_EQ(s[9], '9');
    EXPECT_EQ(s[10], '#');
    EXPECT_EQ(s[100], '#');
}

TEST(String, FindFromPosition)
{
    const String s("hello world hello");
    EXPECT_EQ(s.find("hello"), 0);
    EXPECT_EQ(s.find("hello", 1), 12);
    EXPECT_EQ(s.find("o w"), 4);
    EXPECT_EQ(s.find("xyz"), -1);
    EXPECT_EQ(s.find("hello", 13), -1);
    EXPECT_EQ(s.find("hello world hello!"), -1);
}

TEST(String, RfindSearchesBackFromLengthMinusFrom)
{
    const String s("hello world hello");
    EXPECT_EQ(s.rfind("hello"), 12);
    EXPECT_EQ(s.rfind("hello", 5), 12);
    EXPECT_EQ(s.rfind("hello", 6), 0);
    EXPECT_EQ(s.rfind("o"), 16);
    EXPECT_EQ(s.rfind("xyz"), -1);
    EXPECT_EQ(s.rfind("h", 18), -1);
}

TEST(String, RemoveFirstOccurrenceZeroFillsTail)
{
    String s("one two one");
    EXPECT_EQ(s.remove("one"), 8);
    EXPECT_STREQ(s.data, " two one");
    EXPECT_EQ(std::memcmp(s.data + 8, "\0\0\0", 3), 0);
    EXPECT_EQ(s.remove("three"), -1);
    EXPECT_STREQ(s.data, " two one");
}

TEST(String, RremoveLastOccurrence)
{
    String s("one two one");
    EXPECT_EQ(s.rremove("one"), 8);
    EXPECT_STREQ(s.data, "one two ");
    EXPECT_EQ(s.rremove("x"), -1);
}

TEST(String, TrimStripsBlanksTabsAndLineFeeds)
{
    String s("  \t hi there\n \t");
    s.trim();
    EXPECT_EQ(s, "hi there");
    EXPECT_EQ(s.capacity, 9u);
    String blank(" \n\t ");
    blank.trim();
    EXPECT_TRUE(blank.empty());
    EXPECT_EQ(blank.capacity, 1u);
    EXPECT_EQ(blank.data[0], 0);
}

TEST(String, SubstrTail)
{
    const String s("abcdef");
    EXPECT_EQ(s.substr(2), "cdef");
    EXPECT_EQ(s.substr(0), "abcdef");
    EXPECT_TRUE(s.substr(6).empty());
    EXPECT_TRUE(s.substr(60).empty());
}

TEST(String, SubstrRange)
{
    const String s("abcdef");
    EXPECT_EQ(s.substr(1, 4), "bcd");
    EXPECT_EQ(s.substr(0, 5), "abcde");
    EXPECT_TRUE(s.substr(2, 2).empty());
    EXPECT_TRUE(s.substr(4, 2).empty());
}

TEST(String, SubstrRangeReachingLengthIsEmpty)
{
    const String s("abcdef");
    EXPECT_TRUE(s.substr(0, 6).empty());
    EXPECT_TRUE(s.substr(6, 8).empty());
}

TEST(String, CStrIsCallerOwnedCopy)
{
    const String s("copy me");
    char* copy = s.c_str();
    EXPECT_NE(copy, s.data);
    EXPECT_STREQ(copy, "copy me");
    delete[] copy;
}

TEST(String, EqualityWithString)
{
    EXPECT_TRUE(String("abc") == String("abc"));
    EXPECT_FALSE(String("abc") == String("abd"));
    EXPECT_FALSE(String("abc") == String("abcd"));
    EXPECT_TRUE(String("abc") != String("ab"));
    EXPECT_TRUE(String() == String(""));
}

TEST(String, EqualityWithText)
{
    EXPECT_TRUE(String("abc") == "abc");
    EXPECT_FALSE(String("abc") == "ab");
    EXPECT_FALSE(String("abc") == static_cast<const char*>(nullptr));
    EXPECT_FALSE(String() == static_cast<const char*>(nullptr));
    EXPECT_TRUE(String() == "");
    EXPECT_TRUE(String("a") != "b");
}

TEST(String, Concatenation)
{
    const String wave("Wave ");
    EXPECT_EQ(wave + "3", "Wave 3");
    EXPECT_EQ("Wave " + String("4"), "Wave 4");
    EXPECT_EQ(wave + String(5) + " incoming", "Wave 5 incoming");
    EXPECT_EQ(wave, "Wave ");
}

TEST(String, NumericParsing)
{
    EXPECT_EQ(String("42abc").toInt(), 42);
    EXPECT_EQ(String(" -17").toInt(), -17);
    EXPECT_EQ(String("x").toInt(), 0);
    EXPECT_EQ(String("-5000000000").toLong(), -5000000000L);
    EXPECT_FLOAT_EQ(String("2.5").toFloat(), 2.5f);
    EXPECT_DOUBLE_EQ(String("1e-3").toDouble(), 0.001);
}

TEST(String, PrintAndPutsWriteToStandardOutput)
{
    const String s("Energy: 100");
    testing::internal::CaptureStdout();
    s.print();
    s.puts();
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Energy: 100Energy: 100\n");
}
