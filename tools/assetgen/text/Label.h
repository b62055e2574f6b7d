// Label: small captions printed straight into a picture (the HUD panels' engraved names),
// in DejaVu Sans Bold, antialiased by FreeType and blended over what is there.
#pragma once

#include <string>

#include "core/Canvas.h"

namespace assetgen {

// Draws s with its baseline starting at (x, y) in pixels; returns the width drawn.
float drawLabel(Canvas& canvas, const std::string& s, float x, float y, int pixelSize, V3 colour, float alpha,
                float tracking = 0);

// Width the label would take.
float labelWidth(const std::string& s, int pixelSize, float tracking = 0);

} // namespace assetgen
