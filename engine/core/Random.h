// Random: a table-driven generator for game logic and particle effects. Seeding fills 65536
// integers and 65536 floats from the C library's srand/rand (reseeding that global generator
// too); each draw is then one table look-up that flips the entry it used, so the integer stream
// repeats with period 131072. Cheap, reproducible for a seed on the same C library, and not
// random enough for anything but play. Integer ranges never yield their upper end.
#pragma once

#include <cstdint>

namespace vorlik {

class Random {
public:
    static constexpr int32_t kTableSize = 65536;

    int32_t* ints;       // kTableSize entries, each in 0 .. 2147483647
    float* floats;       // kTableSize entries in [0, 1); a complemented entry may be exactly 1
    int32_t intCursor;   // next integer slot
    int32_t floatCursor; // next float slot

    explicit Random(unsigned seed);
    ~Random();
    // Two generators must never share their tables.
    Random(const Random&) = delete;
    Random& operator=(const Random&) = delete;

    // Refills both tables from srand(s) and rewinds both cursors.
    void seed(unsigned s);

    // 0 .. 2147483647.
    int32_t next();
    // next() % n with a truncating remainder; n must not be 0.
    int32_t next(int32_t n);
    // a when a equals b, else a + next() % (b - a): a <= result < b for a < b. With a > b the
    // remainder keeps the sign of next(), so range(3, 0) gives 3, 4 or 5.
    int32_t range(int32_t a, int32_t b);

    // [0, 1). A float draw stores its complement into the slot under the integer cursor, so the
    // float stream depends on how many integers were drawn in between.
    float nextFloat();
    float nextFloat(float max);
    float range(float a, float b);
};

} // namespace vorlik
