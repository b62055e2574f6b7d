// A node of the scene tree: anything a scene draws. It carries its placement (position,
// anchor, size, rotation, scale), a byte colour that tints its whole subtree, draw flags with
// a blend field, and its links in the parent's child list. The tree never owns its nodes:
// whoever creates a Drawable deletes it, and the destructor first unlinks it from its parent.
// Leaves derive from it directly (Sprite, Text, ParticleSlice); Effects and Groups refine it.
#pragma once

#include "math/mat2.h"
#include "math/vec3.h"
#include "scene/ByteColor.h"
#include "scene/Rect.h"

#include <cstdint>

class Container;
struct SceneState;

// Bits of Drawable::flags.
enum DrawFlags : uint32_t {
    DRAW_VISIBLE = 0x1,       // without it the node and its whole subtree are skipped
    DRAW_UNTRANSFORMED = 0x2, // Effects: drawn in the parent's frame, never culled
    DRAW_HAS_CHILDREN = 0x4,  // Groups: the scene descends into the children after the node
    DRAW_BOUNDS_DIRTY = 0x8,  // the scene calls updateBounds before it reads the size
    DRAW_PERSPECTIVE = 0x10,  // drawn with the perspective projection and the camera model-view
    DRAW_BLEND_FIELD = 0xF00, // bits 8 to 11 hold the BlendMode
};

// Values of the blend field. The scenes test NORMAL, then ADDITIVE, then MODULATE; a field
// with none of them set blends as NORMAL.
enum BlendMode : uint32_t {
    BLEND_NORMAL = 0x100,   // GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA
    BLEND_ADDITIVE = 0x200, // GL_SRC_ALPHA, GL_ONE (glows)
    BLEND_MODULATE = 0x400, // GL_SRC_ALPHA, GL_SRC_COLOR
};

// The anchor presets: where a node's position sits on its rectangle, from the current size.
enum AnchorPreset : int {
    ANCHOR_TOP_LEFT = 0,     // anchor (w/2, h/2)
    ANCHOR_TOP_RIGHT = 1,    // (-w/2, h/2)
    ANCHOR_LEFT = 2,         // (w/2, 0): middle of the left edge
    ANCHOR_TOP = 3,          // (0, h/2): middle of the top edge
    ANCHOR_CENTRE = 4,       // (0, 0)
    ANCHOR_RIGHT = 5,        // (-w/2, 0)
    ANCHOR_BOTTOM = 6,       // (0, -h/2)
    ANCHOR_BOTTOM_LEFT = 7,  // (w/2, -h/2)
    ANCHOR_BOTTOM_RIGHT = 8, // (-w/2, -h/2)
};

class Drawable {
public:
    static constexpr uint32_t kDefaultFlags = DRAW_VISIBLE | BLEND_NORMAL;

    Container* parent = nullptr; // the Container whose list holds this node
    Drawable* next = nullptr;    // later sibling (drawn after, on top)
    Drawable* prev = nullptr;    // earlier sibling
    uint32_t flags = kDefaultFlags;
    ByteColor color;             // tint of the node and its subtree; opaque white
    vorlik::vec3 position;       // world units (pixels in the HUD); the scenes use x and y
    vorlik::vec3 anchor;         // centre of the node's rectangle relative to its position
    vorlik::vec3 size;           // width, height, depth; the rectangle spans anchor +- size/2
    float spareAfterSize[2] = {0.0f, 0.0f};     // always 0; nothing reads them
    float rotation = 0.0f;       // degrees in [0, 360)
    float spareAfterRotation[3] = {0.0f, 0.0f, 0.0f}; // always 0; nothing reads them
    float scale = 1.0f;          // uniform, never negative

    Drawable();
    Drawable(const Drawable&) = delete;            // a copy would share the parent's links
    Drawable& operator=(const Drawable&) = delete;
    // Unlinks the node from its parent; the children of a Group are left detached, not deleted.
    virtual ~Drawable() = 0;

    // Recomputes size and anchor from the node's content and clears DRAW_BOUNDS_DIRTY.
    // This base version only clears the flag.
    virtual void updateBounds();
    // Emits the node's geometry. The scene has already loaded the matrices, the blend
    // function, the client arrays and the textured fixed-function program.
    virtual void draw(const SceneState& state) = 0;

    // Marks the bounds dirty here and in every ancestor up to the scene.
    void invalidate();
    void removeFromParent();
    // Move this node next to a sibling, into the sibling's Container; nothing happens when the
    // sibling is null or detached.
    void placeAfter(Drawable* sibling);
    void placeBefore(Drawable* sibling);
    // Move to the end (drawn last) or the start (drawn first) of the parent's list. Only for
    // a node that is not already there: see Container::bringToFront.
    void bringToFront();
    void sendToBack();

    void setVisible(bool visible);
    bool isVisible() const { return (flags & DRAW_VISIBLE) != 0; }

    // Unpacks a colour packed in the engine Color layout.
    void setColor(uint32_t packed);
    // Each component is clamped to [0, 1] and truncated to a byte without scaling by 255, so
    // only 0 or 1 can result. The title screen relies on nothing more.
    void setColor(float r, float g, float b, float a);

    void setSize(float width, float height);
    void setScale(float s);              // stores |s|
    void setRotation(float degrees);     // wrapped into [0, 360)
    void rotate(float degrees);          // adds, then wraps into [0, 360)
    void setAnchor(float x, float y);
    void resetAnchor();                  // anchor (0, 0): the position is the centre
    // Sets the anchor from the current size (see AnchorPreset); a value outside the nine
    // presets changes nothing.
    void setAnchor(AnchorPreset preset);

    // Replaces bits 8 to 11 of flags with those of mode; the other bits are kept.
    void setBlendMode(uint32_t mode);
    uint32_t blendMode() const { return flags & DRAW_BLEND_FIELD; }

    // The node's placement in its parent's frame: translate by position, rotate, scale.
    vorlik::mat2 localTransform() const;
    // The rectangle that encloses the node's four corners as its parent sees them.
    Rect bounds() const;
};
