// An inner node of the scene tree: an intrusive, doubly linked list of Drawables, drawn first
// to last. List operations only link and unlink; a Container never creates or deletes its
// children, and its destructor leaves them detached and alive. The scenes are Containers
// without a Drawable side; a Group is both.
#pragma once

#include <cstdint>

class Drawable;

class Container {
public:
    Drawable* first = nullptr; // drawn first
    Drawable* last = nullptr;  // drawn last, on top
    uint32_t count = 0;

    Container() = default;
    Container(const Container&) = delete; // the children point back at this Container
    Container& operator=(const Container&) = delete;
    // Detaches every child without deleting it.
    virtual ~Container() = 0;

    // Called by a child whose bounds changed. Nothing to do for a plain Container; a Group
    // passes the mark on to its own parent.
    virtual void invalidate();
    virtual uint32_t childCount() const;
    // Unlinks every child, last to first; the children are not deleted.
    virtual void clear();

    // Every list operation ignores a null child and the Container itself.

    // Appends the child, taking it out of its old Container first.
    virtual void add(Drawable* child);
    // Unlinks a child of this Container. Called with a node of another Container (or of
    // none), it only nulls the node's links and leaves that other list untouched.
    virtual void remove(Drawable* child);
    // Link the child next to a sibling of this Container; nothing happens when the sibling
    // is null or not a child of this Container.
    virtual void insertBefore(Drawable* child, Drawable* sibling);
    virtual void insertAfter(Drawable* child, Drawable* sibling);
    // Move a child to the end (drawn last) or to the start (drawn first). Both read the list
    // end after unlinking the child, so calling them on the node that is already last
    // (first) makes it its own neighbour and cuts it off the list; callers use them only to
    // move a node that is not already there.
    virtual void bringToFront(Drawable* child);
    virtual void sendToBack(Drawable* child);

protected:
    // True for null and for this Container itself, the children no operation accepts.
    bool rejects(const Drawable* child) const;
};
