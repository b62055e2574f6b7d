#include "core/Noise.h"

#include <cmath>

#include "core/Rng.h"

namespace assetgen {

namespace {

float fade(float t) { return t * t * t * (t * (t * 6 - 15) + 10); }

// The twelve edge directions of a cube, picked by the low bits of the hash.
float grad(int hash, float x, float y, float z)
{
    int h = hash & 15;
    float u = h < 8 ? x : y;
    float v = h < 4 ? y : (h == 12 || h == 14 ? x : z);
    return ((h & 1) ? -u : u) + ((h & 2) ? -v : v);
}

} // namespace

Noise::Noise(uint64_t seed)
{
    Rng rng(seed);
    for (int i = 0; i < 256; ++i)
        perm_[i] = static_cast<uint8_t>(i);
    for (int i = 255; i > 0; --i) {
        int j = rng.range(0, i + 1);
        std::swap(perm_[i], perm_[j]);
    }
    for (int i = 0; i < 256; ++i)
        perm_[256 + i] = perm_[i];
}

float Noise::noise(V3 p) const
{
    float fx = std::floor(p.x), fy = std::floor(p.y), fz = std::floor(p.z);
    int X = static_cast<int>(fx) & 255, Y = static_cast<int>(fy) & 255, Z = static_cast<int>(fz) & 255;
    float x = p.x - fx, y = p.y - fy, z = p.z - fz;
    float u = fade(x), v = fade(y), w = fade(z);
    int A = perm_[X] + Y, AA = perm_[A] + Z, AB = perm_[A + 1] + Z;
    int B = perm_[X + 1] + Y, BA = perm_[B] + Z, BB = perm_[B + 1] + Z;
    float x1 = mixf(grad(perm_[AA], x, y, z), grad(perm_[BA], x - 1, y, z), u);
    float x2 = mixf(grad(perm_[AB], x, y - 1, z), grad(perm_[BB], x - 1, y - 1, z), u);
    float x3 = mixf(grad(perm_[AA + 1], x, y, z - 1), grad(perm_[BA + 1], x - 1, y, z - 1), u);
    float x4 = mixf(grad(perm_[AB + 1], x, y - 1, z - 1), grad(perm_[BB + 1], x - 1, y - 1, z - 1), u);
    return mixf(mixf(x1, x2, v), mixf(x3, x4, v), w);
}

float Noise::fbm(V3 p, int octaves, float lacunarity, float gain) const
{
    float sum = 0, amp = 1, norm = 0;
    for (int i = 0; i < octaves; ++i) {
        sum += amp * noise(p);
        norm += amp;
        amp *= gain;
        // Each octave is shifted so the lattice points of successive octaves never line up.
        p = p * lacunarity + V3{17.31f, -9.77f, 5.13f};
    }
    return sum / norm;
}

float Noise::ridged(V3 p, int octaves, float lacunarity, float gain) const
{
    float sum = 0, amp = 1, norm = 0;
    for (int i = 0; i < octaves; ++i) {
        float r = 1 - std::fabs(noise(p));
        sum += amp * r * r;
        norm += amp;
        amp *= gain;
        p = p * lacunarity + V3{-3.71f, 11.9f, 7.45f};
    }
    return sum / norm;
}

} // namespace assetgen
