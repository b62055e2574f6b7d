// String: the engine's byte string for texts on screen, file names and number display. The block
// always holds capacity + 1 zero-filled bytes and is managed with calloc/free; copies are deep.
// Numbers are formatted through the one shared buffer __t_strv, so conversions are for the main
// thread only and for values whose text stays under 255 bytes (no huge doubles).
// Appending one character to a string whose length has reached its capacity leaves it
// unterminated (see operator+=(char)); callers avoid that case.
#pragma once

#include <cstdint>

namespace vorlik {

// Scratch text for every number conversion: zero-filled, then written without a length limit.
extern char __t_strv[255];

class String {
public:
    char* data;        // capacity + 1 bytes, never null; data[length] is 0
    uint32_t capacity; // characters the block holds before its terminator slot
    uint32_t length;   // characters in use

    String();
    String(const char* text); // a null text gives an empty string
    String(const String& other);
    explicit String(char c);
    ~String();

    // Numbers in decimal ("%i"; unsigned ints above INT_MAX print negative). Longs print their
    // low 32 bits as an int followed by a literal "l", floats six decimals, doubles six decimals
    // followed by a literal "L": the game's number texts have always looked like that.
    explicit String(unsigned char v);
    explicit String(short v);
    explicit String(unsigned short v);
    explicit String(int v);
    explicit String(unsigned int v);
    explicit String(long v);
    explicit String(unsigned long v);
    explicit String(float v);
    explicit String(double v);
    explicit String(const void* pointer);

    // The decimal code of a character (String(char) makes a one-character string instead).
    static String charCode(char c);
    // Upper-case hexadecimal. Signed chars and shorts are widened with their sign, so -1 gives
    // "FFFFFFFF"; longs give their low 32 bits followed by a literal "l".
    static String hex(char v);
    static String hex(unsigned char v);
    static String hex(short v);
    static String hex(unsigned short v);
    static String hex(long v);
    static String hex(unsigned long v);

    String& operator=(const char* text);
    String& operator=(const String& other);
    String& operator+=(const char* text);
    String& operator+=(const String& other);
    // Grows eight characters at a time when only the terminator slot is left. When the length has
    // already reached the capacity, the character goes into the terminator slot and the string
    // is unterminated from then on.
    String& operator+=(char c);

    // Grows the block to hold n characters; never shrinks.
    void reserve(uint32_t n);
    // Empties the string into a fresh 4-character block. The first bytes of the old text (up to
    // four) are carried over into it, so only length says what is in use afterwards.
    void clear();

    // Unchecked in the usual sense, but never past the block: any index at or past the capacity
    // reads the terminator slot.
    char operator[](uint32_t i) const;

    // Position of the first occurrence at or after from; -1 when absent.
    int find(const String& needle, uint32_t from = 0) const;
    // Position of the last occurrence that starts at or before length - from; -1 when absent.
    int rfind(const String& needle, uint32_t from = 0) const;
    // Deletes the first / last occurrence; the new length, or -1 when absent.
    int remove(const String& needle);
    int rremove(const String& needle);
    // Strips blanks, tabs and line feeds from both ends into a block that fits the result.
    void trim();

    // The tail from index from; empty when from is at or past the length.
    String substr(uint32_t from) const;
    // Characters from index from up to, not including, to. Empty when from equals to, when
    // from is past to, and when either index is at or past the length: substr(0, length) is
    // empty, use substr(from) for a tail.
    String substr(uint32_t from, uint32_t to) const;

    // A new[] copy that the caller owns and delete[]s.
    char* c_str() const;
    bool empty() const { return length == 0; }
    uint32_t size() const { return length; }

    bool operator==(const String& other) const;
    bool operator==(const char* text) const;
    bool operator!=(const String& other) const { return !(*this == other); }
    bool operator!=(const char* text) const { return !(*this == text); }

    String operator+(const char* text) const;
    String operator+(const String& other) const;

    int toInt() const;
    long toLong() const;
    float toFloat() const;
    double toDouble() const;

    void print() const;
    void puts() const;

private:
    void assign(const char* text, uint32_t n);
    void append(const char* text, uint32_t n);
    void cut(uint32_t at, uint32_t n);
    static String fromBytes(const char* bytes, uint32_t n);
};

String operator+(const char* text, const String& s);

} // namespace vorlik
