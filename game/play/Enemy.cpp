#include "play/Enemy.h"

#include "base/GameRandom.h"
#include "core/String.h"
#include "hud/ScoreCounter.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/EnemyPlasma.h"
#include "play/Explosion.h"
#include "play/GameSession.h"
#include "play/WorldGeometry.h"
#include "player/Friend.h"
#include "player/Powerup.h"
#include "player/TextIndicator.h"
#include "scene/Drawable.h"
#include "scene/ParticleSlice.h"
#include "scene/Scene2D.h"

#include <algorithm>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr float kDefaultRadius = 100.0f; // world units, before a type sets its own
constexpr float kSpawnHitPoints = 25.0f; // before a type sets its own
constexpr int32_t kSpawnScore = 100;
constexpr float kSafeDistance = 1024.0f; // world units a new ship wants from every friend
constexpr float kNoFriendYet = 9000.0f;  // the running minimum before the first try
constexpr int kSpawnTries = 5;
constexpr float kThrustPerTopSpeed = 3.0f; // per second
constexpr double kCircleRange = 0.5;       // of the fire range: circle the prey inside it
constexpr double kDriftRange = 0.25;       // of the fire range: stop thrusting inside it
constexpr float kCircleThrust = 0.5f;      // of the full thrust while circling
constexpr float kFullByte = 255.0f;

// The explosion of every enemy: one burst of fire the size of the ship.
const ExplosionBurst kBurst = {192, {500, 599}, {1000, 1199}, {0.6f, 0.2f, 0.05f, 1.0f}, {0.9f, 0.3f, 0.1f, 1.0f},
                               1.0f};
constexpr float kPopupColour[4] = {1.0f, 1.0f, 1.0f, 1.0f};

float now() { return static_cast<float>(Vorlik::currentTime); }

vec2 randomPoint()
{
    const float x = g_rand.range(0.0f, kWorldWidth);
    const float y = g_rand.range(0.0f, kWorldHeight);
    return vec2(x, y);
}

} // namespace

Enemy::Enemy() : gun(new EnemyPlasma())
{
    radius = kDefaultRadius;
}

Enemy::~Enemy()
{
    if (g_game != nullptr) {
        removeFromList(g_game->enemies, this);
        removeFromList(g_game->actors, static_cast<Actor*>(this));
    }
    delete gun;
}

void Enemy::respawn()
{
    if (g_world != nullptr) g_world->add(gun);
    hitPoints = kSpawnHitPoints;
    scoreValue = kSpawnScore;
    velocity = vec2(0.0f, 0.0f);
    position = safeSpot(g_game->friends);
    // The gun is placed now, not first in the next update: a ship that spawns within range
    // fires before it moves, and its first bolt must leave from the ship.
    gun->position = vorlik::vec3(position.x, position.y, 0.0f);
    target = randomPoint();

    fadeStart = now();
    fadeEnd = fadeStart + kFadeInTime;
    scale = 0.0f;
    if (drawable != nullptr) {
        drawable->color.a = 0;
        drawable->setScale(0.0f);
        drawable->setVisible(true);
    }
}

void Enemy::update()
{
    const float t = now();
    const float sync = Vorlik::sync;

    // The ship's own scale carries the growth, so that the copy onto the drawable at the end
    // shows it, and 1 once the fade is over.
    if (fadeEnd > t) {
        const float grown = (t - fadeStart) / (fadeEnd - fadeStart);
        if (drawable != nullptr) drawable->color.a = static_cast<uint8_t>(grown * kFullByte);
        scale = grown;
    } else if (fadeEnd != 0.0f) {
        if (drawable != nullptr) drawable->color.a = static_cast<uint8_t>(kFullByte);
        scale = 1.0f;
        fadeEnd = 0.0f;
    }

    if (!hunt() && vorlik::distance(position, target) < radius) target = randomPoint();

    velocity = speedBox(velocity + thrust(position, target, topSpeed, fireRange) * sync, topSpeed);
    position += velocity * sync;

    gun->position = vorlik::vec3(position.x, position.y, 0.0f);
    gun->update();
    Actor::update();
}

bool Enemy::hunt()
{
    for (Friend* other : g_game->friends) {
        vec2 images[kWrapImageCount];
        wrapImages(other->position, images);
        for (const vec2& image : images) {
            const float d = vorlik::distance(position, image);
            if (d >= sightRange) continue;
            target = image;
            if (d < fireRange) {
                fire();
                return true;
            }
        }
    }
    return false;
}

vec2 Enemy::thrust(const vec2& position, const vec2& target, float topSpeed, float fireRange)
{
    vec2 a = (target - position).normalized() * (kThrustPerTopSpeed * topSpeed);
    const double d = vorlik::distance(position, target);
    if (d < kCircleRange * fireRange) a = vec2(a.y, -a.x) * kCircleThrust;
    if (d < kDriftRange * fireRange) a = vec2(0.0f, 0.0f);
    return a;
}

vec2 Enemy::speedBox(const vec2& velocity, float topSpeed)
{
    return vec2(vorlik::clamp(velocity.x, -topSpeed, topSpeed), vorlik::clamp(velocity.y, -topSpeed, topSpeed));
}

vec2 Enemy::safeSpot(const vorlik::Stack<Friend*>& friends)
{
    float nearest = kNoFriendYet;
    vec2 spot;
    for (int tries = 1;; ++tries) {
        spot = randomPoint();
        for (const Friend* other : friends) nearest = std::min(nearest, vorlik::distance(spot, other->position));
        if (tries == kSpawnTries || nearest >= kSafeDistance) return spot;
    }
}

void Enemy::fire() { gun->fire(target - position); }

bool Enemy::damage(float amount)
{
    hitPoints -= amount;
    if (hitPoints > 0.0f) return true;
    // The popup needs the value and the place, and the ship is gone after explode().
    const int32_t points = scoreValue;
    const vec2 wreck = position;
    explode();
    TextIndicator::worldNotice(vorlik::String(static_cast<int>(points)).data, kPopupColour, wreck);
    return false;
}

void Enemy::explode()
{
    hitPoints = 0.0f;
    emitExplosion(kBurst, position, radius);
    // Drawn last again, so the explosions stay above the ships.
    if (g_world != nullptr) g_world->add(g_game->explosionSlice);
    if (g_game->scoreCounter != nullptr) g_game->scoreCounter->addValue(scoreValue);

    if (g_rand.range(0.0f, 1.0f) < dropChance) {
        auto* token = new Powerup();
        token->position = position;
        // Drawn just under where the ship was.
        if (drawable != nullptr) token->drawable->placeBefore(drawable);
        g_game->powerups.push(token);
        g_game->actors.push(token);
    }

    if (drawable != nullptr) drawable->setVisible(false);
    delete this;
}
