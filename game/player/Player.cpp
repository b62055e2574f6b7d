#include "player/Player.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "core/String.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/Explosion.h"
#include "play/GameSession.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "play/WorldGeometry.h"
#include "player/ShipMotion.h"
#include "player/TextIndicator.h"
#include "scene/DirectScene2D.h"
#include "scene/Group.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"
#include "scene/Sprite.h"
#include "scene/Text.h"

#include <cmath>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr float kRadius = 32.0f;              // world units
constexpr float kPickupRange = 150.0f;        // world units
constexpr float kHullSize = 64.0f;            // pixels of each hull layer
constexpr float kBottomGlowSize = 60.0f;
constexpr float kTopGlowSize = 72.0f;
constexpr uint8_t kBottomGlowAlpha = 107;     // before the first frame sets it
constexpr float kBottomTurn = -165.0f;        // degrees per second
constexpr float kMiddleTurn = 20.0f;          // degrees per second
constexpr uint32_t kExhaustParticles = 256;
constexpr uint32_t kExhaustSetting = 512;
constexpr uint32_t kExhaustRate = 100;        // particles per second while thrusting
constexpr float kEnergyTextHeight = 15.0f;    // pixels per character
constexpr float kEnergyTextX = 5.0f;          // pixels from the top-left corner
constexpr float kEnergyTextY = 25.0f;
constexpr uint8_t kLaserColour[4] = {76, 76, 255, 224};
constexpr int kKeyUp = 'w', kKeyDown = 's', kKeyLeft = 'a', kKeyRight = 'd';
constexpr int kPlasmaButton = 1, kLaserButton = 3;

// The two explosion bursts of a dying ship: a blue flash, then a long fire.
const ExplosionBurst kBursts[2] = {
    {256, {1233, 1654}, {2899, 3124}, {0.1f, 0.1f, 0.7f, 0.87f}, {0.2f, 0.1f, 0.9f, 1.0f}, 1.43f},
    {512, {500, 599}, {5622, 6233}, {0.6f, 0.2f, 0.05f, 1.0f}, {0.9f, 0.3f, 0.1f, 1.0f}, 1.22f},
};

// The exhaust's look, which nothing else fixes: short-lived blue-violet puffs that leave the
// nozzle backwards in a narrow cone and shrink away, in the colours of the hull's glow. With an
// emitter's defaults (white, 16 units, barely moving) the trail was a solid white bar. Only
// the emitter's place, direction and rate change in flight.
void setUpExhaust(ParticleEmitter& e)
{
    e.colorA = vorlik::vec4(0.25f, 0.25f, 0.85f, 1.0f);
    e.colorB = vorlik::vec4(0.55f, 0.4f, 1.0f, 1.0f);
    e.lifeMin = 350.0f; // ms
    e.lifeMax = 600.0f;
    e.speedMin = 30.0f; // world units over a particle's life
    e.speedMax = 70.0f;
    e.sizeStartMin = 12.0f; // half the puff's edge, world units
    e.sizeStartMax = 16.0f;
    e.sizeEndMin = 2.0f;
    e.sizeEndMax = 4.0f;
    e.spread = 40.0f; // degrees
    e.radius = 3.0f;  // world units
}

Sprite* layer(vorlik::Texture* texture, float size)
{
    return new Sprite(texture, size, size);
}

} // namespace

Player::Player()
    : exhaust(new ParticleSystem(kExhaustParticles, kExhaustSetting)),
      exhaustEmitter(exhaust->createEmitter(nullptr)),
      plasma(new Plasma()),
      laser(new Laser()),
      shipGroup(new Group()),
      hullBottom(layer(Resources::player_bot_tex, kHullSize)),
      hullMiddle(layer(Resources::player_mid_tex, kHullSize)),
      hullTop(layer(Resources::player_top_tex, kHullSize)),
      glowBottom(layer(Resources::player_bot_glow_tex, kBottomGlowSize)),
      glowTop(layer(Resources::player_top_glow_tex, kTopGlowSize)),
      energyText(new Text(Resources::font_big, "")),
      driftLimit(vec2(500.0f, 500.0f).length())
{
    radius = kRadius;
    hull = kFreshHull;
    pickupRange = kPickupRange;
    exhaust->texture = Resources::proc_particle0_tex;
    setUpExhaust(*exhaustEmitter);
    for (int i = 0; i < 4; ++i) laser->colour[i] = kLaserColour[i];

    glowBottom->setBlendMode(BLEND_ADDITIVE);
    glowBottom->color.a = kBottomGlowAlpha;
    glowTop->setBlendMode(BLEND_ADDITIVE);
    for (Sprite* s : {hullBottom, glowBottom, hullMiddle, hullTop, glowTop}) shipGroup->add(s);
    drawable = shipGroup;

    energyText->fontHeight = kEnergyTextHeight;
    energyText->position = vorlik::vec3(kEnergyTextX, kEnergyTextY, 0.0f);
    setEnergyText();
    // Nothing else shows the exhaust or the status line: the ship puts them in their scenes,
    // the trail first in the world so that the ship, added after it, is drawn over it.
    if (g_world != nullptr) g_world->add(exhaust->defaultSlice);
    if (g_hud != nullptr) g_hud->add(energyText);
}

Player::~Player()
{
    if (g_game != nullptr) {
        removeFromList(g_game->friends, static_cast<Friend*>(this));
        removeFromList(g_game->actors, static_cast<Actor*>(this));
    }
    delete laser;
    delete plasma;
    delete glowTop;
    delete glowBottom;
    delete hullTop;
    delete hullMiddle;
    delete hullBottom;
    delete shipGroup;
    delete energyText;
    delete exhaust; // its emitter and default slice go with it
}

void Player::setEnergyText()
{
    vorlik::String line("Energy: ");
    line += vorlik::String(static_cast<int>(energy));
    energyText->setText(line.data);
    energyText->setAnchor(ANCHOR_TOP_LEFT);
}

void Player::update()
{
    const float now = static_cast<float>(Vorlik::currentTime);
    const float sync = Vorlik::sync;

    energy = vorlik::clamp(energy + energyRegen * sync, 0.0f, maxEnergy);
    setEnergyText();

    if (fadeEnd > now) {
        scale = (now - fadeStart) / (fadeEnd - fadeStart);
    } else if (returnTime == 0.0f) {
        control();
    } else if (returnTime > now) {
        if (now >= deathTime) {
            const float t = (now - deathTime) / (returnTime - deathTime);
            position = vec2(vorlik::smoothLerp(t, deathPosition.x, respawnPosition.x),
                            vorlik::smoothLerp(t, deathPosition.y, respawnPosition.y));
        }
    } else {
        position = respawnPosition;
        respawn();
    }

    // The rest runs in every phase, the wreck's too: the guns finish their shots where the
    // ship last placed them.
    laser->update();
    plasma->update();
    velocity = limitLength(velocity, kMaxSpeed);
    drift = nextDrift(drift, velocity, kMaxSpeed, driftLimit, sync);
    Actor::update(); // wraps, then the group takes position, scale and rotation

    const int32_t top = topGlowAlpha(energy, maxEnergy, Vorlik::currentTime);
    glowTop->color.a = static_cast<uint8_t>(top);
    glowBottom->color.a = static_cast<uint8_t>(bottomGlowAlpha(top));

    // The group was placed before this move, so it shows where the ship was a frame ago.
    position = wrapIntoWorld(position + velocity * sync);
    hullBottom->rotate(kBottomTurn * sync);
    glowBottom->setRotation(hullBottom->rotation);
    hullMiddle->rotate(kMiddleTurn * sync);
    shipGroup->invalidate();
}

void Player::control()
{
    const float sync = Vorlik::sync;
    scale = 1.0f;
    fadeStart = fadeEnd = 0.0f;
    const float thrust = kThrust * sync;
    const float brakeStep = kBrake * sync;

    vec2 wanted(0.0f, 0.0f);
    if (Vorlik::keyDown(kKeyUp)) wanted.y -= thrust;
    if (Vorlik::keyDown(kKeyDown)) wanted.y += thrust;
    if (Vorlik::keyDown(kKeyLeft)) wanted.x -= thrust;
    if (Vorlik::keyDown(kKeyRight)) wanted.x += thrust;
    const Thrust paid = payForThrust(wanted, energy, thrustCost * sync);
    energy = paid.energy;
    velocity += paid.change;
    if (wanted.x == 0.0f) velocity.x = brake(velocity.x, brakeStep);
    if (wanted.y == 0.0f) velocity.y = brake(velocity.y, brakeStep);

    const bool thrusting = wanted.x != 0.0f || wanted.y != 0.0f;
    exhaustEmitter->position = position;
    exhaustEmitter->rate = thrusting ? kExhaustRate : 0;
    if (thrusting) exhaustEmitter->direction = -velocity;
    exhaust->update();

    const vorlik::vec3 at(position.x, position.y, 0.0f);
    plasma->position = at;
    laser->position = at;
    // The guns aim through the world camera as it was drawn, like the laser's own aim.
    const vec2 aim =
        g_world->windowToWorld(static_cast<float>(Vorlik::mouseX()), static_cast<float>(Vorlik::mouseY())) - position;
    if (Vorlik::mouseDown(kPlasmaButton) && energy > plasma->power) energy -= plasma->fire(aim);
    if (Vorlik::mouseDown(kLaserButton) && energy > laser->power) energy -= laser->fire(aim);
}

bool Player::damage(float amount)
{
    if (fadeEnd > static_cast<float>(Vorlik::currentTime)) return true;
    hull -= amount;
    if (hull > 0.0f) return true;
    hull = 1.0f;
    die();
    return false;
}

void Player::die()
{
    const float now = static_cast<float>(Vorlik::currentTime);
    hull = 0.0f;
    if (g_game != nullptr)
        for (const ExplosionBurst& burst : kBursts) emitExplosion(burst, position, radius);
    // Drawn again last, so the bursts cover the wreck.
    if (g_world != nullptr && g_game != nullptr) g_world->add(g_game->explosionSlice);

    scale = 0.0f;
    deathPosition = position;
    if (g_game != nullptr && g_game->lives > 0) {
        deathTime = now + kDeathWait;
        returnTime = deathTime + kGlideTime;
        const float x = g_rand.range(-1.0f, 1.0f);
        const float y = g_rand.range(-1.0f, 1.0f);
        respawnPosition = vec2(x, y).normalized() * kRespawnDistance;
    } else {
        if (g_game != nullptr) removeFromList(g_game->actors, static_cast<Actor*>(this));
        shipGroup->removeFromParent();
    }
    velocity = vec2(0.0f, 0.0f);
    if (g_game != nullptr) removeFromList(g_game->friends, static_cast<Friend*>(this));
}

void Player::respawn()
{
    const float now = static_cast<float>(Vorlik::currentTime);
    scale = 0.0f;
    hull = kFreshHull;
    fadeStart = now;
    fadeEnd = now + kFadeInTime;

    g_game->lives -= 1;
    vorlik::String notice(static_cast<int>(g_game->lives));
    notice += " lives left";
    TextIndicator::hudNotice(notice.data);

    if (deathTime == returnTime) return;
    g_game->friends.push(this);
    deathTime = returnTime = 0.0f;
}
