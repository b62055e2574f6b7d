#include "scene/SceneTraversal.h"

#include "scene/Container.h"
#include "scene/Drawable.h"
#include "scene/NodeGeometry.h"
#include "scene/SceneSink.h"

#include <algorithm>

namespace {

constexpr uint32_t kMaxChannel = 255;

// The first child of a node flagged as having children; only Containers have any.
Drawable* firstChildOf(Drawable* node)
{
    const Container* children = dynamic_cast<Container*>(node);
    return children != nullptr ? children->first : nullptr;
}

} // namespace

uint8_t inheritChannel(uint8_t inherited, uint8_t own)
{
    const uint32_t product = (static_cast<uint32_t>(inherited) * (static_cast<uint32_t>(own) + 1)) >> 8;
    return static_cast<uint8_t>(std::min(product, kMaxChannel));
}

ByteColor inheritColor(const ByteColor& inherited, const ByteColor& own)
{
    return ByteColor{inheritChannel(inherited.r, own.r), inheritChannel(inherited.g, own.g),
                     inheritChannel(inherited.b, own.b), inheritChannel(inherited.a, own.a)};
}

void traverseScene(Drawable* first, const SceneState& initial, const TraversalSwitches& switches,
                   SceneScratch& scratch, SceneSink& sink)
{
    scratch.states.clear();
    scratch.siblings.clear();
    SceneState state = initial;
    Drawable* node = first;
    for (;;) {
        // A list has ended: resume with the next remembered sibling under its saved state.
        while (node == nullptr) {
            if (scratch.siblings.empty()) return;
            node = scratch.siblings.pop();
            state = scratch.states.pop();
        }
        Drawable* current = node;
        // Read before drawing: a particle slice may unlink or delete itself in its draw.
        node = current->next;

        if (!(current->flags & DRAW_VISIBLE)) continue;
        const uint8_t alpha = inheritChannel(state.color.a, current->color.a);
        if (switches.cullTransparent && alpha == 0) continue;

        SceneState own = state;
        own.color = inheritColor(state.color, current->color);
        const bool placed = !(current->flags & DRAW_UNTRANSFORMED);
        Rect onView;
        if (placed) {
            const vorlik::vec2 at(current->position.x, current->position.y);
            if (current->flags & DRAW_BOUNDS_DIRTY) current->updateBounds();
            onView = enclosingRect(placeNode(state.transform, at, current->rotation, current->scale),
                                   current->anchor, current->size);
            const ViewRect* view = findViewRect(*state.views, onView);
            if (view == nullptr) continue;
            own.transform = placeNode(state.transform, at + view->offset, current->rotation, current->scale);
        }
        if (switches.debugBounds && placed) sink.drawBounds(onView, own);

        if (current->flags & DRAW_HAS_CHILDREN) {
            // The saved state comes back together with the next remembered sibling. A Group
            // without a next sibling saves a state but remembers no sibling, so the outer
            // sibling that follows is drawn under the state this Group was entered with; the
            // game's trees are built with that pairing in mind.
            scratch.states.push(state);
            if (current->next != nullptr) scratch.siblings.push(current->next);
            state = own;
            node = firstChildOf(current);
            continue;
        }
        // A leaf's saved state would come back right after its draw, so it is never saved.
        sink.drawNode(*current, own);
    }
}
