// What the world scene and the HUD scene share: a Container drawn through a camera, with the
// world extent the view wraps around, the switches of the render, the sequence of a frame and
// the working lists it runs in. Only the two scenes derive from it; where the picture goes (an
// off-screen target or the window) is their own render's business.
//
// A frame, step by step (drawFrame):
//  1. The sink sets up where the frame goes and its GL state (SceneSink::beginFrame). GL is
//     called only by the sink, SceneRenderer: the world's binds and clears its target here.
//  2. prepareFrame, no GL: a zoom at or below 0.01 becomes 0.01 (written back); the camera is
//     wrapped into the world for this frame only; the view list is built into scratch.views
//     (buildViewRects, ViewRect.h); the projections and the camera transform are made, and
//     with them the traversal's initial state; *view is remembered in lastCamera.
//  3. With debugBounds on, the sink outlines the world.
//  4. traverseScene (SceneTraversal.h) walks the tree on scratch's stacks and decides what is
//     drawn and where; each leaf goes to the sink's drawNode, which loads the node's matrices,
//     blend function and program and calls the node's draw.
//  5. The sink finishes the frame (SceneSink::endFrame): the world's composites its target
//     onto the window.
// The scene owns its scratch lists (scratch, a SceneScratch of SceneTraversal.h); they keep
// their memory from frame to frame.
#pragma once

#include "math/mat4.h"
#include "math/vec2.h"
#include "scene/ByteColor.h"
#include "scene/Container.h"
#include "scene/SceneState.h"
#include "scene/SceneTraversal.h"
#include "scene/WorldView.h"

#include <cstdint>

class SceneSink;

class SceneBase : public Container {
public:
    static constexpr float kMinZoom = 0.01f;

    // One frame's camera set-up: what the traversal's initial state points at.
    struct Frame {
        vorlik::mat4 projection;  // orthographic, origin at the screen centre, y down
        vorlik::mat4 perspective; // frustum where one unit is one pixel at distance 2
        vorlik::vec2 camera;      // camera position after wrapping into the world
        SceneState state;         // the traversal's initial state; points at the members above

        Frame() = default;
        Frame(const Frame&) = delete; // the state points into this frame
        Frame& operator=(const Frame&) = delete;
    };

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

    // The frame's view list and the traversal's stacks, this scene's own.
    SceneScratch scratch;

    // A width or height of -1 means the window's.
    SceneBase(int32_t width, int32_t height);
    ~SceneBase() override;

    // Steps 1 to 5 above: one frame of the tree, drawn through sink.
    void drawFrame(SceneSink& sink);
    // Step 2 above, no GL.
    void prepareFrame(Frame& frame);

    // The world point under a window pixel (origin top-left, y down): the inverse of the
    // camera transform of *view, zoom and rotation included. The camera is taken as stored,
    // not wrapped, so near the seam the point lies beside the thing the camera follows (a ship
    // at x 4090 under a camera at 4100 aims at about 4100, not at 4). In the HUD it is the pixel.
    vorlik::vec2 windowToWorld(float windowX, float windowY) const;
};
