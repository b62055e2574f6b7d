#include "scene/Scene2D.h"

#include "graphics/FrameBuffer.h"
#include "scene/SceneRenderer.h"
#include "scene/Shaders.h"


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
    SceneRenderer renderer(target);
    drawFrame(renderer);
}
