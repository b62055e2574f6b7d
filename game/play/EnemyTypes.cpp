#include "play/EnemyTypes.h"

#include "base/Resources.h"
#include "math/scalar.h"
#include "play/GameSession.h"
#include "scene/Group.h"
#include "scene/Sprite.h"

namespace {
constexpr float kFullTurn = 360.0f;   // degrees
constexpr float kNoseUp = 90.0f;      // degrees from a nose-up picture to the engine's angle
} // namespace

// clang-format off
const EnemyType kEnemyTypes[ENEMY_KIND_COUNT] = {
    //  body                                  glow                                        size  radius speed  hp     score  drop
    {&Resources::enemy_fighter_tex,     &Resources::enemy_fighter_glow_tex,      96.0f, 32.0f, 160.0f, 30.0f,  50.0f, 0.4f},
    {&Resources::enemy_fighter2_tex,    &Resources::enemy_fighter2_glow_tex,    136.0f, 50.0f, 120.0f, 65.0f, 125.0f, 0.55f},
    {&Resources::enemy_hammerhead_tex,  &Resources::enemy_hammerhead_glow_tex,  136.0f, 50.0f,  95.0f, 95.0f, 350.0f, 0.7f},
    {&Resources::enemy_probe_tex,       &Resources::enemy_probe_glow_tex,        82.0f, 32.0f, 195.0f, 15.0f, 100.0f, 0.1f},
    {&Resources::enemy_probe_tex,       &Resources::enemy_probe_glow_tex,        96.0f, 42.0f, 235.0f, 25.0f, 175.0f, 0.15f},
    {&Resources::enemy_hammerhead2_tex, &Resources::enemy_hammerhead2_glow_tex, 172.0f, 80.0f,  65.0f, 165.0f, 750.0f, 0.9f},
    {&Resources::enemy_probe3_tex,      &Resources::enemy_probe3_glow_tex,      116.0f, 42.0f, 265.0f, 35.0f, 225.0f, 0.2f},
};
// clang-format on

EnemyShip::EnemyShip(EnemyKind kind)
    : type(kEnemyTypes[kind]),
      group(new Group()),
      body(new Sprite(*type.body, type.spriteSize, type.spriteSize)),
      glow(new Sprite(*type.glow, type.spriteSize, type.spriteSize))
{
    glow->setBlendMode(BLEND_ADDITIVE);
    group->add(body);
    group->add(glow);
    drawable = group;
    respawn();
}

EnemyShip::~EnemyShip()
{
    delete body;
    delete glow;
    delete group;
}

void EnemyShip::update()
{
    Enemy::update();
    group->setRotation(facing(position, velocity));
}

void EnemyShip::respawn()
{
    Enemy::respawn();
    const float toughness = g_game->toughness;
    radius = type.radius;
    sightRange = kSightRange;
    topSpeed = type.topSpeed;
    dropChance = type.dropChance;
    hitPoints = type.hitPoints * toughness;
    scoreValue = static_cast<int32_t>(type.scoreValue * toughness);
}

float EnemyShip::facing(const vorlik::vec2& position, const vorlik::vec2& velocity)
{
    return vorlik::wrap(position.angleTo(position + velocity) + kNoseUp, 0.0f, kFullTurn);
}

EnemyShip* makeEnemy(EnemyKind kind)
{
    switch (kind) {
    case ENEMY_FIGHTER: return new Fighter();
    case ENEMY_FIGHTER2: return new Fighter2();
    case ENEMY_HAMMERHEAD: return new Hammerhead();
    case ENEMY_PROBE: return new Probe();
    case ENEMY_PROBE2: return new Probe2();
    case ENEMY_HAMMERHEAD2: return new Hammerhead2();
    case ENEMY_PROBE3: return new Probe3();
    case ENEMY_KIND_COUNT: break;
    }
    return nullptr;
}
