#include "graphics/FullscreenQuad.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace vorlik {

namespace {
// GL textures hold their rows bottom-up, so the quad's top edge samples v = 1.
const GLfloat kPositions[] = {-1.0f, 1.0f, 1.0f, 1.0f, 1.0f, -1.0f, -1.0f, -1.0f};
const GLfloat kTexCoords[] = {0.0f, 1.0f, 1.0f, 1.0f, 1.0f, 0.0f, 0.0f, 0.0f};
const GLubyte kColors[] = {255, 255, 255, 255, 255, 255, 255, 255,
                           255, 255, 255, 255, 255, 255, 255, 255};
} // namespace

void drawFullscreenQuad()
{
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();

    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, kPositions);
    glTexCoordPointer(2, GL_FLOAT, 0, kTexCoords);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, kColors);
    glDrawArrays(GL_QUADS, 0, 4);
}

} // namespace vorlik
