// A Container that is also a Drawable: placed in another Container, it carries one
// transform, colour and visibility for its whole subtree (HUD boxes, the reticle). It draws
// nothing itself; the scenes draw its children after it. Its size is the box that encloses
// its direct children, refreshed by updateBounds.
#pragma once

#include "scene/Container.h"
#include "scene/Drawable.h"

class Group : public Container, public Drawable {
public:
    Group();
    // Clears the children (left detached and alive), then unlinks the Group from its parent.
    ~Group() override;

    // Both bases move nodes to the front or back: the Container moves a child, the Drawable
    // moves the Group itself within its parent.
    using Container::bringToFront;
    using Container::sendToBack;
    using Drawable::bringToFront;
    using Drawable::sendToBack;

    // Marks the Group's own bounds dirty and passes the mark up to its parent.
    void invalidate() override;
    // Size = the box enclosing the corners of every direct child (refreshing dirty children
    // first), in the Group's frame. The anchor is kept.
    void updateBounds() override;
    // Nothing to draw: the scenes draw the children.
    void draw(const SceneState& state) override;
};
