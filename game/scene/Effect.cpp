#include "scene/Effect.h"

Effect::Effect() { flags |= DRAW_UNTRANSFORMED; }
