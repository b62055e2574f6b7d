#include "hud/HudPanel.h"

#include "scene/Sprite.h"

Sprite* makeHudPanel(vorlik::Texture* picture)
{
    auto* panel = new Sprite(picture, Sprite::kOwnSize, Sprite::kOwnSize);
    panel->setScale(kHudPanelScale);
    return panel;
}
