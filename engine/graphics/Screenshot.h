// Saves the frame last shown in the window (the front buffer) as a BMP file, top row first
// as it appeared on screen. Failures to read or write are not reported.
#pragma once

namespace vorlik {

void screenshot(const char* path);

} // namespace vorlik
