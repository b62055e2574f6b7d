#include "scene/ParticleBatchRenderer.h"

#include "graphics/Texture.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace {
constexpr GLsizei kStride = sizeof(ParticleSlice::Vertex); // bytes from one vertex to the next
} // namespace

void ParticleBatchRenderer::beginSlice(vorlik::Texture* texture)
{
    drawing = texture != nullptr && texture->width != 0 && texture->height != 0;
    if (!drawing) return;
    Shaders::useTextured();
    texture->bind(GL_TEXTURE0);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
}

void ParticleBatchRenderer::drawBatch(const ParticleSlice::Vertex* vertices, uint32_t count,
                                      const vorlik::mat2& modelView)
{
    if (!drawing) return;
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(modelView.toMat4().data());
    glVertexPointer(2, GL_FLOAT, kStride, &vertices->x);
    glTexCoordPointer(2, GL_FLOAT, kStride, &vertices->u);
    glColorPointer(4, GL_UNSIGNED_BYTE, kStride, &vertices->r);
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(count));
}
