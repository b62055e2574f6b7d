#include "hud/HUD_RadarBox.h"

#include "base/Resources.h"
#include "hud/HudPanel.h"
#include "platform/Vorlik.h"
#include "scene/Sprite.h"

using vorlik::Vorlik;

HUD_RadarBox::HUD_RadarBox() : panel(makeHudPanel(Resources::hud_radar_dials_tex))
{
    add(panel);
    position = vorlik::vec3(static_cast<float>(Vorlik::getWidth()) - kCornerGap,
                            static_cast<float>(Vorlik::getHeight()) - kCornerGap, 0.0f);
}

HUD_RadarBox::~HUD_RadarBox() { delete panel; }
