#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstring>

#include "core/String.h"

using namespace vorlik;

TEST(StringFormat, ScratchBufferIs255Bytes) { EXPECT_EQ(sizeof(__t_strv), 255u); }

TEST(StringFormat, EachConversionZeroFillsScratchBuffer)
{
    std::memset(__t_strv, 'x', sizeof __t_strv);
    const String s(7);
    EXPECT_EQ(s, "7");
    EXPECT_EQ(__t_strv[0], '7');
    for (size_t i = 1; i < sizeof __t_strv; ++i) ASSERT_EQ(__t_strv[i], 0) << "byte " << i;
}

TEST(StringFormat, Int)
{
    EXPECT_EQ(String(0), "0");
    EXPECT_EQ(String(1234), "1234");
    EXPECT_EQ(String(-42), "-42");
    EXPECT_EQ(String(INT_MIN), "-2147483648");
    EXPECT_EQ(String(INT_MAX), "2147483647");
}

TEST(StringFormat, UnsignedIntReadAsSigned)
{
    EXPECT_EQ(String(7u), "7");
    EXPECT_EQ(String(4294967295u), "-1");
    EXPECT_EQ(String(3000000000u), "-1294967296");
}

TEST(StringFormat, NarrowIntegers)
{
    EXPECT_EQ(String(static_cast<short>(-300)), "-300");
    EXPECT_EQ(String(static_cast<unsigned short>(65535)), "65535");
    EXPECT_EQ(String(static_cast<unsigned char>(255)), "255");
    EXPECT_EQ(String::charCode('A'), "65");
    EXPECT_EQ(String::charCode(static_cast<char>(-1)), "-1");
}

TEST(StringFormat, LongPrintsLow32BitsThenLetterL)
{
    EXPECT_EQ(String(0L), "0l");
    EXPECT_EQ(String(5L), "5l");
    EXPECT_EQ(String(-1L), "-1l");
    EXPECT_EQ(String(123456789012L), "-1097262572l");
    EXPECT_EQ(String(-5000000000L), "-705032704l");
    EXPECT_EQ(String(LONG_MAX), "-1l");
    EXPECT_EQ(String(LONG_MIN), "0l");
}

TEST(StringFormat, UnsignedLongPrintsLow32BitsThenLetterL)
{
    EXPECT_EQ(String(42UL), "42l");
    EXPECT_EQ(String(4294967296UL), "0l");
    EXPECT_EQ(String(3000000000UL), "-1294967296l");
    EXPECT_EQ(String(ULONG_MAX), "-1l");
}

TEST(StringFormat, FloatHasSixDecimals)
{
    EXPECT_EQ(String(1.5f), "1.500000");
    EXPECT_EQ(String(-0.25f), "-0.250000");
    EXPECT_EQ(String(0.1f), "0.100000");
    EXPECT_EQ(String(1e10f), "10000000000.000000");
    EXPECT_EQ(String(-123456.5f), "-123456.500000");
}

TEST(StringFormat, DoubleHasSixDecimalsThenLetterL)
{
    EXPECT_EQ(String(1.5), "1.500000L");
    EXPECT_EQ(String(-2.0), "-2.000000L");
    EXPECT_EQ(String(0.0000004), "0.000000L");
    EXPECT_EQ(String(1e20), "100000000000000000000.000000L");
    EXPECT_EQ(String(-9876543210.125), "-9876543210.125000L");
}

TEST(StringFormat, DoubleTextBeyond254CharactersDoesNotFitScratchBuffer)
{
    // 1e245 prints as 246 digits, six decimals, point and "L": 254 characters, the most that fit.
    const String largest(1e245);
    EXPECT_EQ(largest.length, 254u);
    EXPECT_EQ(largest.data[0], '1');
    EXPECT_EQ(largest.data[253], 'L');
    // Ten times that needs 255 characters plus the terminator, past the end of the buffer, which
    // is why callers format only small values.
    EXPECT_GE(std::snprintf(nullptr, 0, "%fL", 1e246), static_cast<int>(sizeof __t_strv));
}

TEST(StringFormat, HexOfNegativeCharIsSignExtended)
{
    EXPECT_EQ(String::hex(static_cast<char>(-1)), "FFFFFFFF");
    EXPECT_EQ(String::hex(static_cast<char>(-128)), "FFFFFF80");
    EXPECT_EQ(String::hex(static_cast<char>(10)), "A");
}

TEST(StringFormat, HexOfUnsignedCharAndShorts)
{
    EXPECT_EQ(String::hex(static_cast<unsigned char>(255)), "FF");
    EXPECT_EQ(String::hex(static_cast<short>(-2)), "FFFFFFFE");
    EXPECT_EQ(String::hex(static_cast<short>(0x1234)), "1234");
    EXPECT_EQ(String::hex(static_cast<unsigned short>(0xBEEF)), "BEEF");
}

TEST(StringFormat, HexOfLongIsLow32BitsThenLetterL)
{
    EXPECT_EQ(String::hex(255L), "FFl");
    EXPECT_EQ(String::hex(-1L), "FFFFFFFFl");
    EXPECT_EQ(String::hex(0x123456789ABL), "456789ABl");
    EXPECT_EQ(String::hex(0xFEDCBA9876543210UL), "76543210l");
    EXPECT_EQ(String::hex(0UL), "0l");
}

TEST(StringFormat, PointerUsesPercentP)
{
    int target = 0;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%p", static_cast<const void*>(&target));
    EXPECT_EQ(String(static_cast<const void*>(&target)), expected);
    EXPECT_EQ(String(static_cast<const void*>(nullptr)), "(nil)");
}
