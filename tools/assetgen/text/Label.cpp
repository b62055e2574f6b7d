#include "text/Label.h"

#include <cmath>

#include "text/FontFace.h"

namespace assetgen {

namespace {

const char* const kLabelFace = "DejaVuSans-Bold.ttf";

} // namespace

float labelWidth(const std::string& s, int pixelSize, float tracking)
{
    FontFace face(kLabelFace);
    face.setPixelSize(pixelSize);
    float w = 0;
    for (char ch : s)
        w += face.advance(static_cast<uint8_t>(ch)) + tracking;
    return s.empty() ? 0 : w - tracking;
}

float drawLabel(Canvas& canvas, const std::string& s, float x, float y, int pixelSize, V3 colour, float alpha,
                float tracking)
{
    FontFace face(kLabelFace);
    face.setPixelSize(pixelSize);
    float pen = x;
    for (char ch : s) {
        Glyph g = face.glyph(static_cast<uint8_t>(ch));
        int ox = static_cast<int>(std::lround(pen)) + g.left, oy = static_cast<int>(std::lround(y)) - g.top;
        for (int j = 0; j < g.height; ++j)
            for (int i = 0; i < g.width; ++i) {
                int px = ox + i, py = oy + j;
                if (px < 0 || py < 0 || px >= canvas.width() || py >= canvas.height())
                    continue;
                float cov = g.coverage[static_cast<size_t>(j) * g.width + i] / 255.0f;
                canvas.at(px, py) = over(solid(colour, cov * alpha), canvas.at(px, py));
            }
        pen += g.advance + tracking;
    }
    return pen - x;
}

} // namespace assetgen
