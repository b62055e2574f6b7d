// Encodes RGBA pixels as a PNG file in memory for the loader tests: 8-bit RGBA, no filtering,
// zlib "stored" blocks, so the bytes are exact and easy to cut short. Test use only.
#pragma once

#include <cstdint>
#include <vector>

namespace pngtest {

inline uint32_t crc32(const uint8_t* data, size_t n, uint32_t crc = 0xFFFFFFFFu)
{
    for (size_t i = 0; i < n; ++i) {
        crc ^= data[i];
        for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
    }
    return crc;
}

inline void putBigEndian(std::vector<uint8_t>& out, uint32_t v)
{
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<uint8_t>(v >> shift));
}

inline void putChunk(std::vector<uint8_t>& out, const char* type, const std::vector<uint8_t>& body)
{
    putBigEndian(out, static_cast<uint32_t>(body.size()));
    std::vector<uint8_t> typed(type, type + 4);
    typed.insert(typed.end(), body.begin(), body.end());
    out.insert(out.end(), typed.begin(), typed.end());
    putBigEndian(out, crc32(typed.data(), typed.size()) ^ 0xFFFFFFFFu);
}

// rgba: width * height pixels, rows top to bottom, bytes R, G, B, A.
inline std::vector<uint8_t> encode(int width, int height, const std::vector<uint8_t>& rgba)
{
    std::vector<uint8_t> raw;
    for (int y = 0; y < height; ++y) {
        raw.push_back(0); // filter: none
        raw.insert(raw.end(), rgba.begin() + y * width * 4, rgba.begin() + (y + 1) * width * 4);
    }

    std::vector<uint8_t> zlib = {0x78, 0x01};
    size_t pos = 0;
    do {
        const size_t n = raw.size() - pos < 65535 ? raw.size() - pos : 65535;
        const bool last = pos + n == raw.size();
        zlib.push_back(last ? 1 : 0);
        zlib.push_back(static_cast<uint8_t>(n));
        zlib.push_back(static_cast<uint8_t>(n >> 8));
        zlib.push_back(static_cast<uint8_t>(~n));
        zlib.push_back(static_cast<uint8_t>(~n >> 8));
        zlib.insert(zlib.end(), raw.begin() + pos, raw.begin() + pos + n);
        pos += n;
    } while (pos < raw.size());
    uint32_t a = 1, b = 0;
    for (uint8_t byte : raw) {
        a = (a + byte) % 65521u;
        b = (b + a) % 65521u;
    }
    putBigEndian(zlib, (b << 16) | a);

    std::vector<uint8_t> png = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
    std::vector<uint8_t> header;
    putBigEndian(header, static_cast<uint32_t>(width));
    putBigEndian(header, static_cast<uint32_t>(height));
    header.insert(header.end(), {8, 6, 0, 0, 0}); // 8 bits, RGBA, deflate, no filter, no interlace
    putChunk(png, "IHDR", header);
    putChunk(png, "IDAT", zlib);
    putChunk(png, "IEND", {});
    return png;
}

} // namespace pngtest
