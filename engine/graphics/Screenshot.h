// Saves the frame last shown in the window as a BMP file, top row first as it appeared on
// screen, at the window's size. Failures to read or write are not reported.
#pragma once

namespace vorlik {

void screenshot(const char* path);

// The colour buffer that holds the frame on screen under the GL renderer of that name (as
// glGetString(GL_RENDERER) gives it): GL_FRONT, except under Mesa's llvmpipe, whose front
// buffer never receives a swapped frame; there it is GL_BACK, which still holds the frame
// just shown, together with anything drawn into it since the swap. A null name gives GL_FRONT.
unsigned int shownFrameBuffer(const char* renderer);

} // namespace vorlik
