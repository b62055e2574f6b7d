// The world: everything on the playing field (ships, shots, particles, the starfield) drawn
// through the camera into an off-screen target of window size, then composited onto the
// screen with one full-screen quad. The world wraps round like a torus: the camera is taken
// modulo the world size and things near the far edges are drawn across them. One instance,
// created at start-up and kept until exit.
#pragma once

#include "scene/SceneBase.h"

namespace vorlik {
class FrameBuffer;
class Texture;
} // namespace vorlik

class Scene2D : public SceneBase {
public:
    static constexpr uint32_t kTargetAttachments = 31; // four RGBA8 colours and a depth buffer

    vorlik::FrameBuffer* target;   // owned, the scene's pixel size
    vorlik::Texture* textures[4];  // target's colour attachments; the first is composited

    // A width or height of -1 means the window's. Needs the GL context; loads the game's
    // shader programs if that has not happened yet.
    Scene2D(int32_t width, int32_t height);
    ~Scene2D() override;

    // Draws the tree into the cleared target, then the target onto the window under whichever
    // program the frame's last draw left in use (drawFrame through a SceneRenderer of target).
    void render();
};

// The game's world scene, created at start-up with a 4096 x 4096 world.
extern Scene2D* g_world;
