// PngFile: writes a Picture as an 8-bit RGBA PNG through libpng.
// No time stamps or other variable chunks are written, so equal pictures give equal files.
#pragma once

#include <string>

#include "core/Canvas.h"

namespace assetgen {

// Returns false (after printing why) when the file cannot be written.
bool writePng(const std::string& path, const Picture& picture);

} // namespace assetgen
