#include "text/Fonts.h"

#include <algorithm>
#include <cmath>

#include "text/FontFace.h"

namespace assetgen {

namespace {

constexpr int kGrid = 16;
const char* const kFaceFile = "DejaVuSansMono-Bold.ttf";
// Texels left empty round every cell, so linear filtering never pulls a neighbour's ink in.
constexpr int kBorder = 1;

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

struct InkBounds {
    float top = 0, bottom = 0;  // pixels above and below the baseline
};

InkBounds asciiInk(FontFace& face, float embolden)
{
    InkBounds b;
    for (uint32_t code = 33; code < 127; ++code) {
        Glyph g = face.glyph(code, embolden);
        b.top = std::max(b.top, static_cast<float>(g.top));
        b.bottom = std::max(b.bottom, static_cast<float>(g.height - g.top));
    }
    return b;
}

} // namespace

const std::vector<FontStyle>& fontStyles()
{
    static const std::vector<FontStyle> styles = {
        {"hugefont", 36, 64, 3.0f, 2.0f},
        {"medfont", 18, 32, 1.5f, 0.4f},
        {"smallfont", 12, 22, 1.2f, 0.0f},
        {"minifont", 9, 16, 0.8f, 0.0f},
    };
    return styles;
}

void makeFont(AssetSink& sink, const FontStyle& style)
{
    FontFace face(kFaceFile);
    if (!face.ok()) {
        sink.fail(style.name);
        return;
    }
    // The largest face whose ASCII glyphs, with their outline, fit inside the cell's border
    // in height. Glyphs too wide for the cell (M, W, m, w, @...) are narrowed one by one, so
    // the cells stay close to the common letters and the text does not look spaced out.
    // Latin-1 capitals with accents may lose the tips of their accents; the game prints none.
    const float pad = style.outline + 0.5f;
    const float roomW = style.cellWidth - 2 * kBorder - 2 * pad;
    const float roomH = style.cellHeight - 2 * kBorder - 2 * pad;
    int em = style.cellHeight;
    InkBounds ink;
    for (; em > 4; --em) {
        face.setPixelSize(em);
        ink = asciiInk(face, style.embolden);
        if (ink.top + ink.bottom <= roomH)
            break;
    }
    const float baseline = kBorder + pad + ink.top;
    auto fitted = [&](uint32_t code) {
        Glyph g;
        for (int emW = em; emW > 4; --emW) {
            face.setPixelSize(emW, em);
            g = face.glyph(code, style.embolden);
            if (g.width <= roomW)
                break;
        }
        face.setPixelSize(em);
        return g;
    };

    const int w = style.cellWidth * kGrid, h = style.cellHeight * kGrid;
    Canvas canvas(w, h);
    std::vector<float> cell(static_cast<size_t>(style.cellWidth) * style.cellHeight);
    for (int code = 0; code < 256; ++code) {
        if (!printable(code))
            continue;
        Glyph g = fitted(static_cast<uint32_t>(code));
        std::fill(cell.begin(), cell.end(), 0.0f);
        // Each glyph's ink is centred across the cell; all share the baseline.
        int ox = static_cast<int>(std::round((style.cellWidth - g.width) / 2.0f));
        int oy = static_cast<int>(baseline) - g.top;
        for (int y = 0; y < g.height; ++y)
            for (int x = 0; x < g.width; ++x) {
                int cx = ox + x, cy = oy + y;
                if (cx < 0 || cy < 0 || cx >= style.cellWidth || cy >= style.cellHeight)
                    continue;
                cell[static_cast<size_t>(cy) * style.cellWidth + cx] = g.coverage[static_cast<size_t>(y) * g.width + x] / 255.0f;
            }
        int x0 = (code % kGrid) * style.cellWidth, y0 = (code / kGrid) * style.cellHeight;
        for (int y = 0; y < style.cellHeight; ++y)
            for (int x = 0; x < style.cellWidth; ++x) {
                if (x < kBorder || y < kBorder || x >= style.cellWidth - kBorder || y >= style.cellHeight - kBorder)
                    continue;
                float fill = cell[static_cast<size_t>(y) * style.cellWidth + x];
                float edge = dilated(cell, style.cellWidth, style.cellHeight, x, y, style.outline) * 0.85f;
                canvas.at(x0 + x, y0 + y) = over(solid({1, 1, 1}, fill), solid({0.02f, 0.02f, 0.05f}, edge));
            }
    }
    sink.picture(style.name, canvas);
}

} // namespace assetgen
