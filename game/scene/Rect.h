// An axis-aligned rectangle given by its minimum corner and its extent: what
// Drawable::bounds returns and what the scenes' culling compares against the view.
#pragma once

struct Rect {
    float x = 0, y = 0;          // minimum corner
    float width = 0, height = 0; // extent, never negative for an enclosing rectangle
};
