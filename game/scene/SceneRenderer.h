// The GL side of a scene's frame: the state a frame starts from, the world outline, and for
// each node the traversal decided to draw, the matrices, blend function, default arrays and
// textured program set up before the node's own draw. It only draws; it decides nothing.
#pragma once

#include "scene/SceneSink.h"

#include <cstdint>

// The source and destination factors of glBlendFunc.
struct BlendFactors {
    uint32_t source;
    uint32_t destination;
};

// NORMAL is tested first, then ADDITIVE, then MODULATE; a field with none of them is NORMAL.
BlendFactors blendFactorsFor(uint32_t blendField);

namespace vorlik {
class FrameBuffer;
}

class SceneRenderer : public SceneSink {
public:
    // Draws into target (its size, cleared at the start, composited onto the window at the
    // end), or straight into the window when target is null.
    explicit SceneRenderer(vorlik::FrameBuffer* target = nullptr);

    // Binds and clears the target, if any; then culling and depth test off, texturing and
    // blending on, the vertex, colour and texture-coordinate arrays on and the normal array off.
    void beginFrame() override;
    // With a target: back to the window, and the target's first colour texture drawn over the
    // whole window with normal blending, under whichever program the last draw left in use.
    // With an empty world that is the program that drew last in the previous frame: during a
    // fade the fader's colour program, which paints the quad's opaque white.
    void endFrame() override;
    // A white line loop at alpha 192 and line width 3.
    void drawWorldOutline(const SceneState& initial, float worldWidth, float worldHeight) override;

    // Loads the node's projection and model-view (the perspective pair for DRAW_PERSPECTIVE
    // nodes), its blend function, four white colours and the unit square as default arrays and
    // the textured fixed-function program, then calls the node's draw.
    void drawNode(Drawable& node, const SceneState& state) override;
    // The rectangle as a line loop of width 1 with the corners green, red, blue, red.
    void drawBounds(const Rect& cameraRect, const SceneState& state) override;

private:
    vorlik::FrameBuffer* target;
};
