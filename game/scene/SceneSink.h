// Where a scene's frame sends what it decided to draw. The scenes pass the GL renderer
// (SceneRenderer); tests pass a recorder, so every decision can be checked without a display.
#pragma once

#include "scene/Rect.h"

class Drawable;
struct SceneState;

class SceneSink {
public:
    virtual ~SceneSink() = default;
    // Where the frame goes and the state it starts from, before anything is drawn.
    virtual void beginFrame() = 0;
    // After the tree: what the frame's destination needs to reach the window.
    virtual void endFrame() = 0;
    // Outline of the world (0, 0) to (worldWidth, worldHeight) through the frame's camera.
    virtual void drawWorldOutline(const SceneState& initial, float worldWidth, float worldHeight) = 0;
    // Draw one leaf node under its own state (colour, transform, view list).
    virtual void drawNode(Drawable& node, const SceneState& state) = 0;
    // Outline of a node's enclosing rectangle in camera space, for the bounds overlay.
    virtual void drawBounds(const Rect& cameraRect, const SceneState& state) = 0;
};
