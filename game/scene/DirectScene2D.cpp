#include "scene/DirectScene2D.h"

#include "scene/SceneRenderer.h"
#include "scene/Shaders.h"

DirectScene2D* g_hud = nullptr;

DirectScene2D::DirectScene2D(int32_t width, int32_t height) : SceneBase(width, height) { Shaders::setupShaders(); }

void DirectScene2D::render()
{
    SceneRenderer renderer;
    drawFrame(renderer);
}
