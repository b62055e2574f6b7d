// Where a scene looks: the world point at the centre of the view, the zoom and the turn.
// Game code moves the world by writing a scene's camera (or the WorldView its `view` points at).
#pragma once

struct WorldView {
    float x = 0.0f, y = 0.0f;  // world point at the view centre
    float zoom = 1.0f;         // pixels per world unit; the render raises anything <= 0.01 to 0.01
    float rotation = 0.0f;     // degrees
};
