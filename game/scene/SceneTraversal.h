// The walk both scenes make over their tree each frame, reduced to decisions: which nodes are
// skipped (hidden, transparent, off every view rectangle), where each drawn node lands, and
// the colour and transform it inherits. What is drawn goes to a SceneSink, so the decisions
// run and are tested without GL. The walk is iterative, on the scratch lists' explicit stacks.
#pragma once

#include "core/Stack.h"
#include "scene/ByteColor.h"
#include "scene/SceneState.h"
#include "scene/ViewRect.h"

#include <cstdint>

class Drawable;
class SceneSink;

// The lists a frame works in: the view rectangles and the walk's explicit stacks of saved
// states and remembered siblings. They are reset, never shrunk, at each frame, so once they
// have grown to the tree's depth a frame allocates nothing.
struct SceneScratch {
    static constexpr uint32_t kInitialCapacity = 128;

    vorlik::Stack<ViewRect> views{kInitialCapacity};
    vorlik::Stack<SceneState> states{kInitialCapacity};
    vorlik::Stack<Drawable*> siblings{kInitialCapacity};
};

struct TraversalSwitches {
    bool cullTransparent = true; // skip nodes (and subtrees) whose inherited alpha is 0
    bool debugBounds = false;    // outline the enclosing rectangle of every culled-in node but Effects
};

// A channel inherited down the tree: (inherited x (own + 1)) >> 8, at most 255. A node of 255
// keeps the inherited value exactly; a node of 0 gives 0.
uint8_t inheritChannel(uint8_t inherited, uint8_t own);
ByteColor inheritColor(const ByteColor& inherited, const ByteColor& own);

// Walks the list that starts at first depth first, in list order, starting from the state
// initial (whose view list the culling uses). Leaves go to sink.drawNode under their own state;
// Groups draw nothing and pass their state to their children. The scratch states and siblings
// are reset here.
void traverseScene(Drawable* first, const SceneState& initial, const TraversalSwitches& switches,
                   SceneScratch& scratch, SceneSink& sink);
