// The HUD: everything fixed on the screen (HUD boxes, reticle, score and wave texts), drawn
// straight into the window after the world, without clearing and without a target. The camera
// sits at the screen centre and the world is the screen, so node coordinates are pixels with
// the origin at the top-left; a node wholly off the screen may show up one screen over.
// One instance, created at start-up and kept until exit.
#pragma once

#include "scene/SceneBase.h"

class DirectScene2D : public SceneBase {
public:
    // A width or height of -1 means the window's. Needs the GL context; loads the game's
    // shader programs if that has not happened yet.
    DirectScene2D(int32_t width, int32_t height);

    // Draws the tree over whatever the window holds (drawFrame); the last node's GL state
    // stays in force.
    void render();
};

// The game's HUD scene, created at start-up.
extern DirectScene2D* g_hud;
