// RunDirFiles: reads the generated files back from the run directory for the tests: PNGs
// through SDL_image exactly as the game loads them, into plain RGBA arrays.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace testing_assets {

struct Rgba {
    int width = 0, height = 0;
    std::vector<uint8_t> px;  // R, G, B, A per pixel, rows top to bottom

    bool valid() const { return width > 0; }
    const uint8_t* at(int x, int y) const { return &px[(static_cast<size_t>(y) * width + x) * 4]; }
    uint8_t alpha(int x, int y) const { return at(x, y)[3]; }
};

std::string gfxPath(const std::string& name);     // run dir / gfx / name.png
std::string runPath(const std::string& relative); // run dir / relative
Rgba loadPng(const std::string& path);            // invalid (width 0) when SDL_image fails
std::vector<uint8_t> readFile(const std::string& path);

} // namespace testing_assets
