#include "scene/Scene2D.h"

#include "graphics/FrameBuffer.h"
#include "graphics/FullscreenQuad.h"
#include "graphics/Texture.h"
#include "scene/SceneRenderer.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

Scene2D* g_world = nullptr;

Scene2D::Scene2D(int32_t width, int32_t height)
    : SceneBase(width, height),
      target(new vorlik::FrameBuffer(static_cast<uint32_t>(this->width), static_cast<uint32_t>(this->height),
                                     kTargetAttachments))
{
    for (int i = 0; i < vorlik::FrameBuffer::kMaxColors; ++i) textures[i] = target->color[i];
    Shaders::setupShaders();
}

Scene2D::~Scene2D() { delete target; }

void Scene2D::render()
{
    target->bind();
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    SceneRenderer renderer;
    drawFrame(renderer);

    // The composite keeps whichever program the last draw left in use. With nodes in the
    // world that is the textured program; with an empty world it is whatever drew last in the
    // previous frame, the fader's colour program during a fade, which paints the window with
    // the quad's opaque white.
    vorlik::FrameBuffer::unbind();
    textures[0]->bind(GL_TEXTURE0);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    vorlik::drawFullscreenQuad();
}
