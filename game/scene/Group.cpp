#include "scene/Group.h"

#include "scene/NodeGeometry.h"

#include <algorithm>
#include <limits>

Group::Group() { flags |= DRAW_HAS_CHILDREN | DRAW_BOUNDS_DIRTY; }

Group::~Group() { clear(); }

void Group::invalidate() { Drawable::invalidate(); }

void Group::updateBounds()
{
    constexpr float kHuge = std::numeric_limits<float>::max();
    size = vorlik::vec3();
    vorlik::vec3 low(kHuge, kHuge, kHuge);
    vorlik::vec3 high(-kHuge, -kHuge, -kHuge);
    bool any = false;
    for (Drawable* child = first; child != nullptr; child = child->next) {
        if (child->flags & DRAW_BOUNDS_DIRTY) child->updateBounds();
        vorlik::vec2 corners[4];
        nodeCorners(child->localTransform(), child->anchor, child->size, corners);
        for (const vorlik::vec2& c : corners) {
            low.x = std::min(low.x, c.x);
            low.y = std::min(low.y, c.y);
            high.x = std::max(high.x, c.x);
            high.y = std::max(high.y, c.y);
        }
        // The placement turns about z only, so depth is just moved and scaled.
        const float nearZ = child->position.z + child->scale * (child->anchor.z - child->size.z * 0.5f);
        const float farZ = child->position.z + child->scale * (child->anchor.z + child->size.z * 0.5f);
        low.z = std::min({low.z, nearZ, farZ});
        high.z = std::max({high.z, nearZ, farZ});
        any = true;
    }
    if (any) size = high - low;
    flags &= ~DRAW_BOUNDS_DIRTY;
}

void Group::draw(const SceneState&) {}
