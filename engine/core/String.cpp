#include "core/String.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace vorlik {

namespace {

char* allocate(uint32_t bytes) { return static_cast<char*>(std::calloc(bytes, 1)); }

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }

} // namespace

String::String() : data(allocate(1)), capacity(0), length(0) {}

String::String(const char* text)
{
    length = text ? static_cast<uint32_t>(std::strlen(text)) : 0;
    capacity = length + 1;
    data = allocate(length + 2);
    if (length) std::memcpy(data, text, length);
}

String::String(const String& other)
    : data(allocate(other.length + 2)), capacity(other.length + 1), length(other.length)
{
    std::memcpy(data, other.data, length);
}

String::String(char c) : data(allocate(3)), capacity(2), length(1) { data[0] = c; }

String::~String() { std::free(data); }

String& String::operator=(const char* text)
{
    assign(text, text ? static_cast<uint32_t>(std::strlen(text)) : 0);
    return *this;
}

String& String::operator=(const String& other)
{
    assign(other.data, other.length);
    return *this;
}

String& String::operator+=(const char* text)
{
    if (text) append(text, static_cast<uint32_t>(std::strlen(text)));
    return *this;
}

String& String::operator+=(const String& other)
{
    append(other.data, other.length);
    return *this;
}

String& String::operator+=(char c)
{
    if (capacity == length + 1) {
        char* grown = allocate(length + 10);
        std::memcpy(grown, data, length);
        std::free(data);
        data = grown;
        capacity = length + 9;
    }
    data[length < capacity ? length : capacity] = c;
    ++length;
    // A reused block may hold old bytes past the text, so terminate whenever the block has room.
    if (length <= capacity) data[length] = 0;
    return *this;
}

void String::assign(const char* text, uint32_t n)
{
    if (n > capacity) {
        // Copy before freeing: the text may live in the old block.
        char* grown = allocate(n + 2);
        std::memcpy(grown, text, n);
        std::free(data);
        data = grown;
        capacity = n + 1;
    } else if (n) {
        std::memmove(data, text, n);
    }
    data[n] = 0;
    length = n;
}

void String::append(const char* text, uint32_t n)
{
    if (capacity < length + n + 1) {
        char* grown = allocate(length + n + 2);
        std::memcpy(grown, data, length);
        if (n) std::memcpy(grown + length, text, n);
        std::free(data);
        data = grown;
        capacity = length + n + 1;
    } else if (n) {
        std::memmove(data + length, text, n);
    }
    length += n;
    data[length] = 0;
}

void String::reserve(uint32_t n)
{
    if (capacity >= n) return;
    char* grown = allocate(n + 1);
    std::memcpy(grown, data, capacity);
    std::free(data);
    data = grown;
    capacity = n;
}

void String::clear()
{
    char* small = allocate(5);
    std::memcpy(small, data, capacity + 1 < 4 ? capacity + 1 : 4);
    std::free(data);
    data = small;
    capacity = 4;
    length = 0;
}

char String::operator[](uint32_t i) const { return i < capacity ? data[i] : data[capacity]; }

int String::find(const String& needle, uint32_t from) const
{
    if (needle.length > length) return -1;
    for (uint32_t p = from; p <= length - needle.length; ++p)
        if (std::memcmp(data + p, needle.data, needle.length) == 0) return static_cast<int>(p);
    return -1;
}

int String::rfind(const String& needle, uint32_t from) const
{
    if (from > length || needle.length > length) return -1;
    uint32_t p = length - from;
    if (p > length - needle.length) p = length - needle.length;
    for (;; --p) {
        if (std::memcmp(data + p, needle.data, needle.length) == 0) return static_cast<int>(p);
        if (p == 0) return -1;
    }
}

void String::cut(uint32_t at, uint32_t n)
{
    std::memmove(data + at, data + at + n, length - at - n);
    std::memset(data + length - n, 0, n);
    length -= n;
}

int String::remove(const String& needle)
{
    const int at = find(needle);
    if (at < 0) return -1;
    cut(static_cast<uint32_t>(at), needle.length);
    return static_cast<int>(length);
}

int String::rremove(const String& needle)
{
    const int at = rfind(needle);
    if (at < 0) return -1;
    cut(static_cast<uint32_t>(at), needle.length);
    return static_cast<int>(length);
}

void String::trim()
{
    uint32_t begin = 0;
    uint32_t end = length;
    while (begin < end && isBlank(data[begin])) ++begin;
    while (end > begin && isBlank(data[end - 1])) --end;
    const uint32_t n = end - begin;
    char* fitted = allocate(n + 2);
    std::memcpy(fitted, data + begin, n);
    std::free(data);
    data = fitted;
    capacity = n + 1;
    length = n;
}

String String::fromBytes(const char* bytes, uint32_t n)
{
    String s;
    s.assign(bytes, n);
    return s;
}

String String::substr(uint32_t from) const
{
    if (from >= length) return String();
    return fromBytes(data + from, length - from);
}

String String::substr(uint32_t from, uint32_t to) const
{
    if (from >= to || from >= length || to >= length) return String();
    return fromBytes(data + from, to - from);
}

char* String::c_str() const
{
    char* copy = new char[length + 1];
    std::memcpy(copy, data, length);
    copy[length] = 0;
    return copy;
}

bool String::operator==(const String& other) const
{
    if (!data || !other.data || length != other.length) return false;
    return std::memcmp(data, other.data, length) == 0;
}

bool String::operator==(const char* text) const
{
    if (!text || std::strlen(text) != length) return false;
    return std::memcmp(data, text, length) == 0;
}

String String::operator+(const char* text) const
{
    String s(*this);
    s += text;
    return s;
}

String String::operator+(const String& other) const
{
    String s(*this);
    s += other;
    return s;
}

String operator+(const char* text, const String& s)
{
    String r(text);
    r += s;
    return r;
}

int String::toInt() const { return static_cast<int>(std::strtol(data, nullptr, 10)); }
long String::toLong() const { return std::strtol(data, nullptr, 10); }
float String::toFloat() const { return std::strtof(data, nullptr); }
double String::toDouble() const { return std::strtod(data, nullptr); }

void String::print() const { std::printf("%s", data); }
void String::puts() const { std::puts(data); }

} // namespace vorlik
