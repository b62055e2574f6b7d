#include "hud/HUD_WeaponBox.h"

#include "base/Resources.h"
#include "hud/HudPanel.h"
#include "hud/ScoreCounter.h"
#include "platform/Vorlik.h"
#include "scene/Sprite.h"
#include "scene/Text.h"

namespace {
// Top-left corners of the three numbers in the box's pixels (the panel's centre is the origin):
// in the middle of the plasma dial, of the laser dial and of the reserve window.
constexpr float kCounterPlaces[HUD_WeaponBox::kCounterCount][2] = {
    {-56.0f, -2.0f}, {2.0f, -2.0f}, {64.0f, 4.0f}};
} // namespace

HUD_WeaponBox::HUD_WeaponBox() : panel(makeHudPanel(Resources::hud_power_dials_tex))
{
    add(panel);
    // These counters are never updated, so their texts are placed here, inside the box, and
    // the counters' own positions are not used.
    for (int i = 0; i < kCounterCount; ++i) {
        counters[i] = new ScoreCounter(&counters[i]);
        counters[i]->text->position = vorlik::vec3(kCounterPlaces[i][0], kCounterPlaces[i][1], 0.0f);
        add(counters[i]->text);
    }
    position = vorlik::vec3(kX, static_cast<float>(vorlik::Vorlik::getHeight()) - kBottomGap, 0.0f);
}

HUD_WeaponBox::~HUD_WeaponBox()
{
    delete panel;
    for (ScoreCounter* counter : counters) delete counter;
}
