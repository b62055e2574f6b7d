// The rules of the session's actor lists: flat arrays of pointers, appended at the end,
// emptied by swap-remove, and walked by index so that an actor may delete itself (or others)
// during the walk. No copy of a list is made and nothing is deferred.
#pragma once

#include "core/Stack.h"

#include <cstdint>

constexpr uint32_t kActorListCapacity = 128; // the lists' starting room; they double when full

// Removes the first entry equal to item by moving the last entry into its slot; the order is
// not kept. A pointer that is not in the list changes nothing.
template <typename T> void removeFromList(vorlik::Stack<T*>& list, T* item)
{
    for (uint32_t i = 0; i < list.count; ++i) {
        if (list.data[i] != item) continue;
        list.data[i] = list.data[list.count - 1];
        list.data[list.count - 1] = nullptr;
        --list.count;
        return;
    }
}

// Calls update() on every entry, re-reading the count after each call. When an entry deletes
// itself, the last entry moves into its slot behind the walk and is skipped this frame; the
// next frame updates it again. That one-frame skip is how the game has always behaved.
template <typename T> void updateAll(vorlik::Stack<T*>& list)
{
    for (uint32_t i = 0; i < list.count; ++i) list.data[i]->update();
}
