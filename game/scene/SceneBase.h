// What the world scene and the HUD scene share: a Container drawn through a camera, with the
// world extent the view wraps around, the switches of the render and the traversal's frame.
// Only the two scenes derive from it; it does not decide where the picture goes (an
// off-screen target or the window), that is the scenes' render.
#pragma once

#include "core/Stack.h"
#include "scene/ByteColor.h"
#include "scene/Container.h"
#include "scene/ViewRect.h"
#include "scene/WorldView.h"

#include <cstdint>

struct SceneFrame;

class SceneBase : public Container {
public:
    static constexpr float kMinZoom = 0.01f;

    WorldView camera;        // starts at the centre of the pixel area
    WorldView lastCamera;    // *view as it was at the previous render: (0, 0, 1, 0) at first
    WorldView* view;         // what the render looks through; points at camera
    float worldWidth;        // extent of the wrapping world, world units; the pixel size at first
    float worldHeight;
    int32_t width;           // pixel size of the picture
    int32_t height;

    // Settings of a bloom pass for the loaded blur programs; no pass runs, glow comes from
    // additive sprites, so the render reads none of them.
    float bloomRadius = 80.0f;
    float bloomPasses = 2.0f;
    float bloomStrength = 10.0f;
    float bloomThreshold = 0.5f;
    ByteColor bloomTint;     // opaque white
    float bloomMix = 0.1f;
    bool bloom = true;       // switches the unused bloom pass

    bool debugBounds = true; // outlines of the world and of every drawn node; the game turns it off
    bool wrapWorld = true;   // the world is a torus: the camera wraps and edges are drawn across
    bool cullTransparent = true; // nodes whose inherited alpha is 0 are skipped with their subtree

    // A width or height of -1 means the window's.
    SceneBase(int32_t width, int32_t height);
    ~SceneBase() override;

    // The camera part of a render, no GL: raises the zoom of *view to 0.01 if it is not above
    // that (and writes it back), wraps the camera into the world (for this frame only), fills
    // views and the frame's matrices and initial state, and remembers *view in lastCamera.
    void prepareFrame(SceneFrame& frame, vorlik::Stack<ViewRect>& views);
};
