// The panel picture that every HUD box is built on: a sprite of the picture at its own size,
// drawn at half that size.
#pragma once

class Sprite;

namespace vorlik {
class Texture;
}

constexpr float kHudPanelScale = 0.5f; // the panels are drawn at half their pictures' size

// A new sprite of picture at its own size with scale kHudPanelScale, centred on its position;
// the caller owns it.
Sprite* makeHudPanel(vorlik::Texture* picture);
