#include "scene/Container.h"

#include "scene/Drawable.h"

namespace {

void detach(Drawable* node)
{
    node->parent = nullptr;
    node->next = nullptr;
    node->prev = nullptr;
}

} // namespace

Container::~Container() { clear(); }

void Container::invalidate() {}

uint32_t Container::childCount() const { return count; }

void Container::clear()
{
    Drawable* node = last;
    while (node != nullptr) {
        Drawable* before = node->prev;
        detach(node);
        node = before;
    }
    first = nullptr;
    last = nullptr;
    count = 0;
}

// A Group is a Container and a Drawable at two different addresses, so "the Container itself"
// is recognised by comparing whole objects, not base pointers: a Drawable pointer never equals
// a Container pointer, and a Group let into its own list would make the scenes descend into it
// forever.
bool Container::rejects(const Drawable* child) const
{
    return child == nullptr || dynamic_cast<const void*>(child) == dynamic_cast<const void*>(this);
}

void Container::add(Drawable* child)
{
    if (rejects(child)) return;
    if (child->parent != nullptr) child->parent->remove(child);
    child->parent = this;
    child->prev = last;
    child->next = nullptr;
    if (first == nullptr)
        first = child;
    else
        last->next = child;
    last = child;
    ++count;
}

void Container::remove(Drawable* child)
{
    if (rejects(child)) return;
    if (child->parent == this) {
        if (child == last) last = child->prev;
        if (child == first) first = child->next;
        if (child->next != nullptr) child->next->prev = child->prev;
        if (child->prev != nullptr) child->prev->next = child->next;
        --count;
    }
    detach(child);
}

void Container::insertAfter(Drawable* child, Drawable* sibling)
{
    if (rejects(child)) return;
    if (sibling == nullptr || sibling->parent != this) return;
    if (child->parent != nullptr) child->parent->remove(child);
    child->parent = this;
    child->prev = sibling;
    child->next = sibling->next;
    sibling->next = child;
    if (child->next != nullptr) child->next->prev = child;
    if (sibling == last) last = child;
    ++count;
}

void Container::insertBefore(Drawable* child, Drawable* sibling)
{
    if (rejects(child)) return;
    if (sibling == nullptr || sibling->parent != this) return;
    if (child->parent != nullptr) child->parent->remove(child);
    child->parent = this;
    child->next = sibling;
    child->prev = sibling->prev;
    sibling->prev = child;
    if (child->prev != nullptr) child->prev->next = child;
    if (sibling == first) first = child;
    ++count;
}

void Container::bringToFront(Drawable* child)
{
    if (rejects(child) || child->parent != this) return;
    if (child == first) first = child->next;
    if (child->prev != nullptr) child->prev->next = child->next;
    if (child->next != nullptr) child->next->prev = child->prev;
    // `last` is read as it was before the unlink: for the node that was already last this
    // makes it its own predecessor (see the header).
    last->next = child;
    child->prev = last;
    last = child;
    child->next = nullptr;
}

void Container::sendToBack(Drawable* child)
{
    if (rejects(child) || child->parent != this) return;
    if (child == last) last = child->prev;
    if (child->next != nullptr) child->next->prev = child->prev;
    if (child->prev != nullptr) child->prev->next = child->next;
    first->prev = child;
    child->next = first;
    first = child;
    child->prev = nullptr;
}
