// Number to text for String: every conversion goes through the shared scratch buffer __t_strv,
// in the formats the game's number texts have always had.
#include "core/String.h"

#include <cstdio>
#include <cstring>

namespace vorlik {

char __t_strv[255];

namespace {

// Every conversion starts from an all-zero scratch buffer.
char* scratch()
{
    std::memset(__t_strv, 0, sizeof __t_strv);
    return __t_strv;
}

const char* decimal(int v)
{
    std::sprintf(scratch(), "%i", v);
    return __t_strv;
}

const char* decimal(unsigned int v)
{
    // Unsigned values have always gone through "%i" too, so the largest ones print negative.
    std::sprintf(scratch(), "%i", static_cast<int>(v));
    return __t_strv;
}

// The formats "%il" and "%Xl" are deliberate: longs have always been printed by handing the
// 64-bit value to a "%i" or "%X" that reads 32 bits, with the "l" as a literal letter after it.
// On x86-64 that read sees the low half of the value, so passing the low half ourselves prints
// the very same bytes without handing a variadic call an argument of the wrong type.
const char* decimalLong(long v)
{
    std::sprintf(scratch(), "%il", static_cast<int>(v));
    return __t_strv;
}

const char* hexLong(long v)
{
    std::sprintf(scratch(), "%Xl", static_cast<unsigned int>(v));
    return __t_strv;
}

// Narrow values are widened to int first, keeping their sign, then read as unsigned by "%X".
const char* hexNarrow(int v)
{
    std::sprintf(scratch(), "%X", static_cast<unsigned int>(v));
    return __t_strv;
}

const char* fixed(float v)
{
    std::sprintf(scratch(), "%f", static_cast<double>(v));
    return __t_strv;
}

// Doubles carry a literal "L" after their six decimals, as they always have on screen.
const char* fixedLong(double v)
{
    std::sprintf(scratch(), "%fL", v);
    return __t_strv;
}

const char* address(const void* pointer)
{
    std::sprintf(scratch(), "%p", pointer);
    return __t_strv;
}

} // namespace

String::String(unsigned char v) : String(decimal(static_cast<int>(v))) {}
String::String(short v) : String(decimal(static_cast<int>(v))) {}
String::String(unsigned short v) : String(decimal(static_cast<int>(v))) {}
String::String(int v) : String(decimal(v)) {}
String::String(unsigned int v) : String(decimal(v)) {}
String::String(long v) : String(decimalLong(v)) {}
String::String(unsigned long v) : String(decimalLong(static_cast<long>(v))) {}

String::String(float v) : String(fixed(v)) {}
String::String(double v) : String(fixedLong(v)) {}
String::String(const void* pointer) : String(address(pointer)) {}

String String::charCode(char c) { return String(decimal(static_cast<int>(c))); }
String String::hex(char v) { return String(hexNarrow(v)); }
String String::hex(unsigned char v) { return String(hexNarrow(v)); }
String String::hex(short v) { return String(hexNarrow(v)); }
String String::hex(unsigned short v) { return String(hexNarrow(v)); }
String String::hex(long v) { return String(hexLong(v)); }
String String::hex(unsigned long v) { return String(hexLong(static_cast<long>(v))); }

} // namespace vorlik
