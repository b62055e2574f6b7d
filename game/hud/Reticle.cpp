#include "hud/Reticle.h"

#include "base/Resources.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Sprite.h"

#include <cmath>

using vorlik::Vorlik;

namespace {
constexpr double kGlowPulseRate = 0.005; // radians per ms
constexpr double kGlowSwing = 64.0;      // alpha either side of the middle
constexpr double kGlowMiddle = 128.0;    // alpha
} // namespace

Reticle::Reticle()
    : reticleSprite(new Sprite(Resources::reticle_tex, Sprite::kOwnSize, Sprite::kOwnSize)),
      reticleGlow(new Sprite(Resources::reticle_glow_tex, kGlowSize, kGlowSize))
{
    reticleSprite->setSize(kMarkSize, kMarkSize);
    add(reticleSprite);
    add(reticleGlow);
    flags |= DRAW_VISIBLE;
}

Reticle::~Reticle()
{
    delete reticleSprite;
    delete reticleGlow;
}

uint8_t Reticle::glowAlpha(uint32_t now)
{
    // The whole sum is truncated, as a byte takes a float: a swing of -10.5 gives 117, not 118.
    return static_cast<uint8_t>(std::sin(now * kGlowPulseRate) * kGlowSwing + kGlowMiddle);
}

void Reticle::updateReticle()
{
    const vorlik::vec2 p =
        g_hud->windowToWorld(static_cast<float>(Vorlik::mouseX()), static_cast<float>(Vorlik::mouseY()));
    position = vorlik::vec3(p.x, p.y, 0.0f);
    reticleGlow->color.a = glowAlpha(Vorlik::currentTime);
}
