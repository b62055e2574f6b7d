// Where the scene traversal sends what it decided to draw. The scenes pass the GL renderer;
// tests pass a recorder, so the decisions can be checked without a display.
#pragma once

#include "scene/Rect.h"

class Drawable;
struct SceneState;

class SceneSink {
public:
    virtual ~SceneSink() = default;
    // Draw one leaf node under its own state (colour, transform, view list).
    virtual void drawNode(Drawable& node, const SceneState& state) = 0;
    // Outline of a node's enclosing rectangle in camera space, for the bounds overlay.
    virtual void drawBounds(const Rect& cameraRect, const SceneState& state) = 0;
};
