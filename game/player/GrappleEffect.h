// An effect for a grappling line that the game declares but never creates: it holds nothing,
// its update does nothing, and each kind of line would have to say how it draws.
#pragma once

#include "scene/Effect.h"

class GrappleEffect : public Effect {
public:
    GrappleEffect();
    ~GrappleEffect() override;

    void update();
};
