#include "scene/Drawable.h"

#include "graphics/Color.h"
#include "math/scalar.h"
#include "scene/Container.h"
#include "scene/NodeGeometry.h"

#include <cmath>

namespace {

constexpr float kFullTurn = 360.0f; // degrees

// Anchor of each preset, in AnchorPreset order, as a fraction of (width, height). The
// rectangle spans anchor +- size/2 and y grows downwards.
constexpr int kAnchorPresetCount = ANCHOR_BOTTOM_RIGHT + 1;
constexpr float kAnchorPresets[kAnchorPresetCount][2] = {
    {0.5f, 0.5f},  {-0.5f, 0.5f}, {0.5f, 0.0f},  {0.0f, 0.5f},   {0.0f, 0.0f},
    {-0.5f, 0.0f}, {0.0f, -0.5f}, {0.5f, -0.5f}, {-0.5f, -0.5f},
};

// Clamps a component to [0, 1] and truncates it: only 0 or 1 comes out.
uint8_t unscaledByte(float v) { return static_cast<uint8_t>(vorlik::clamp(v, 0.0f, 1.0f)); }

} // namespace

Drawable::Drawable() = default;

Drawable::~Drawable() { removeFromParent(); }

void Drawable::updateBounds() { flags &= ~DRAW_BOUNDS_DIRTY; }

void Drawable::invalidate()
{
    flags |= DRAW_BOUNDS_DIRTY;
    if (parent != nullptr) parent->invalidate();
}

void Drawable::removeFromParent()
{
    if (parent != nullptr) parent->remove(this);
}

void Drawable::placeAfter(Drawable* sibling)
{
    if (sibling != nullptr && sibling->parent != nullptr) sibling->parent->insertAfter(this, sibling);
}

void Drawable::placeBefore(Drawable* sibling)
{
    if (sibling != nullptr && sibling->parent != nullptr) sibling->parent->insertBefore(this, sibling);
}

void Drawable::bringToFront()
{
    if (parent != nullptr) parent->bringToFront(this);
}

void Drawable::sendToBack()
{
    if (parent != nullptr) parent->sendToBack(this);
}

void Drawable::setVisible(bool visible)
{
    if (visible)
        flags |= DRAW_VISIBLE;
    else
        flags &= ~DRAW_VISIBLE;
}

void Drawable::setColor(uint32_t packed)
{
    color.r = vorlik::Color::getR(packed);
    color.g = vorlik::Color::getG(packed);
    color.b = vorlik::Color::getB(packed);
    color.a = vorlik::Color::getA(packed);
}

void Drawable::setColor(float r, float g, float b, float a)
{
    color.r = unscaledByte(r);
    color.g = unscaledByte(g);
    color.b = unscaledByte(b);
    color.a = unscaledByte(a);
}

void Drawable::setSize(float width, float height)
{
    size.x = width;
    size.y = height;
}

void Drawable::setScale(float s) { scale = std::fabs(s); }

void Drawable::setRotation(float degrees) { rotation = vorlik::wrap(degrees, 0.0f, kFullTurn); }

void Drawable::rotate(float degrees) { setRotation(rotation + degrees); }

void Drawable::setAnchor(float x, float y)
{
    anchor.x = x;
    anchor.y = y;
}

void Drawable::resetAnchor() { setAnchor(0.0f, 0.0f); }

void Drawable::setAnchor(AnchorPreset preset)
{
    if (preset < 0 || preset >= kAnchorPresetCount) return;
    setAnchor(kAnchorPresets[preset][0] * size.x, kAnchorPresets[preset][1] * size.y);
}

void Drawable::setBlendMode(uint32_t mode) { flags = (flags & ~DRAW_BLEND_FIELD) | (mode & DRAW_BLEND_FIELD); }

vorlik::mat2 Drawable::localTransform() const
{
    return placeNode(vorlik::mat2(), vorlik::vec2(position.x, position.y), rotation, scale);
}

Rect Drawable::bounds() const { return enclosingRect(localTransform(), anchor, size); }
