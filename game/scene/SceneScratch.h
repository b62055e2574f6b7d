// The growable lists a scene's render works in: the frame's view rectangles, the saved states
// and the remembered siblings of the traversal. They are reset, never shrunk, at each render,
// so once they have grown to the tree's depth a frame allocates nothing.
#pragma once

#include "core/Stack.h"
#include "scene/SceneState.h"
#include "scene/ViewRect.h"

class Drawable;

struct SceneScratch {
    static constexpr uint32_t kInitialCapacity = 128;

    vorlik::Stack<ViewRect> views{kInitialCapacity};
    vorlik::Stack<SceneState> states{kInitialCapacity};
    vorlik::Stack<Drawable*> siblings{kInitialCapacity};
};
