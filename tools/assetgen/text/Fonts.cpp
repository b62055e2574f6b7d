#include "text/Fonts.h"

#include <algorithm>
#include <cmath>

#include "text/FontFace.h"

namespace assetgen {

namespace {

constexpr int kGrid = 16;
const char* const kFaceFile = "DejaVuSansMono-Bold.ttf";

bool printable(int code) { return (code >= 33 && code <= 126) || (code >= 161 && code <= 255 && code != 173); }

// Coverage of the glyph grown by r pixels, with a soft rim: the dark outline's alpha.
float dilated(const std::vector<float>& cov, int w, int h, int x, int y, float r)
{
    int reach = static_cast<int>(std::ceil(r)) + 1;
    float best = 0;
    for (int dy = -reach; dy <= reach; ++dy)
        for (int dx = -reach; dx <= reach; ++dx) {
            int sx = x + dx, sy = y + dy;
            if (sx < 0 || sy < 0 || sx >= w || sy >= h)
                continue;
            float weight = clamp01(r + 0.5f - std::sqrt(static_cast<float>(dx * dx + dy * dy)));
            best = std::max(best, cov[static_cast<size_t>(sy) * w + sx] * weight);
        }
    return best;
}

} // namespace

const std::vector<FontSpec>& fontSpecs()
{
    static const std::vector<FontSpec> specs = {
        {"hugefont", 36, 64, 3.0f, 2.0f},
        {"medfont", 18, 32, 1.6f, 0.4f},
        {"smallfont", 12, 20, 1.2f, 0.0f},
        {"minifont", 8, 13, 1.0f, 0.0f},
    };
    return specs;
}

void makeFont(AssetSink& sink, const FontSpec& spec)
{
    FontFace face(kFaceFile);
    if (!face.ok()) {
        sink.fail(spec.name);
        return;
    }
    // Largest size whose lines and advance fit the cell with the outline round them.
    float pad = spec.outline + 0.5f;
    int em = spec.cellHeight * 2;
    for (; em > 4; --em) {
        face.setPixelSize(em);
        bool tall = face.ascender() + face.descender() + 2 * pad <= spec.cellHeight + 0.5f;
        bool wide = face.advance('M') + spec.embolden + 2 * pad <= spec.cellWidth + 1.0f;
        if (tall && wide)
            break;
    }
    float baseline = std::round(pad + face.ascender());

    const int w = spec.cellWidth * kGrid, h = spec.cellHeight * kGrid;
    Canvas canvas(w, h);
    std::vector<float> cell(static_cast<size_t>(spec.cellWidth) * spec.cellHeight);
    for (int code = 0; code < 256; ++code) {
        if (!printable(code))
            continue;
        Glyph g = face.glyph(static_cast<uint32_t>(code), spec.embolden);
        std::fill(cell.begin(), cell.end(), 0.0f);
        int ox = static_cast<int>(std::round((spec.cellWidth - (g.advance + spec.embolden)) / 2)) + g.left;
        int oy = static_cast<int>(baseline) - g.top;
        for (int y = 0; y < g.height; ++y)
            for (int x = 0; x < g.width; ++x) {
                int cx = ox + x, cy = oy + y;
                if (cx < 0 || cy < 0 || cx >= spec.cellWidth || cy >= spec.cellHeight)
                    continue;
                cell[static_cast<size_t>(cy) * spec.cellWidth + cx] = g.coverage[static_cast<size_t>(y) * g.width + x] / 255.0f;
            }
        int x0 = (code % kGrid) * spec.cellWidth, y0 = (code / kGrid) * spec.cellHeight;
        for (int y = 0; y < spec.cellHeight; ++y)
            for (int x = 0; x < spec.cellWidth; ++x) {
                float fill = cell[static_cast<size_t>(y) * spec.cellWidth + x];
                float edge = dilated(cell, spec.cellWidth, spec.cellHeight, x, y, spec.outline) * 0.85f;
                canvas.at(x0 + x, y0 + y) = over(solid({1, 1, 1}, fill), solid({0.02f, 0.02f, 0.05f}, edge));
            }
    }
    sink.picture(spec.name, canvas);
}

} // namespace assetgen
