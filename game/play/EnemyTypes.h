// The seven hostile ship types. They behave alike (Enemy.h) and differ only in the numbers and
// pictures of one table, kEnemyTypes, which EnemyShip reads: size, collision radius, speed,
// hit points and score (both grown by the session's toughness) and the chance of a powerup.
// Each ship is a group of its body with its glow drawn over it, turned to face its flight.
#pragma once

#include "math/vec2.h"
#include "play/Enemy.h"

#include <cstdint>

class Group;
class Sprite;

namespace vorlik {
class Texture;
}

enum EnemyKind : uint32_t {
    ENEMY_FIGHTER = 0,
    ENEMY_FIGHTER2,
    ENEMY_HAMMERHEAD,
    ENEMY_PROBE,
    ENEMY_PROBE2,
    ENEMY_HAMMERHEAD2,
    ENEMY_PROBE3,
    ENEMY_KIND_COUNT,
};

// One row of the table. The pictures are read from Resources when a ship is built.
struct EnemyType {
    vorlik::Texture* const* body; // the body picture, its nose pointing up
    vorlik::Texture* const* glow; // drawn additively over the body
    float spriteSize;             // pixels, square
    float radius;                 // world units: hits and waypoints
    float topSpeed;               // world units per second on each axis
    float hitPoints;              // at toughness 1
    float scoreValue;             // at toughness 1; the grown value is truncated
    float dropChance;             // 0 to 1
};

// By EnemyKind.
extern const EnemyType kEnemyTypes[ENEMY_KIND_COUNT];

// A ship of one type: its group, body and glow, and the type's numbers set at each respawn.
class EnemyShip : public Enemy {
public:
    static constexpr float kSightRange = 3000.0f; // world units, every type

    const EnemyType& type;
    Group* group; // owned; the drawable: body, then glow
    Sprite* body; // owned
    Sprite* glow; // owned, additive

    // Builds the pictures and spawns the ship (respawn); g_game must be set.
    explicit EnemyShip(EnemyKind kind);
    ~EnemyShip() override;

    // Enemy's frame, then the group turns to face the direction of flight.
    void update() override;
    // Enemy's spawn, then the type's numbers at the session's current toughness.
    void respawn() override;

    // The group's rotation for a ship at position flying with velocity: the engine's angle
    // from position to position + velocity (degrees), plus 90 for pictures drawn nose up,
    // wrapped into [0, 360). At rest the angle of a zero vector applies: 90.
    static float facing(const vorlik::vec2& position, const vorlik::vec2& velocity);
};

class Fighter : public EnemyShip {
public:
    Fighter() : EnemyShip(ENEMY_FIGHTER) {}
};
class Fighter2 : public EnemyShip {
public:
    Fighter2() : EnemyShip(ENEMY_FIGHTER2) {}
};
class Hammerhead : public EnemyShip {
public:
    Hammerhead() : EnemyShip(ENEMY_HAMMERHEAD) {}
};
class Hammerhead2 : public EnemyShip {
public:
    Hammerhead2() : EnemyShip(ENEMY_HAMMERHEAD2) {}
};
class Probe : public EnemyShip {
public:
    Probe() : EnemyShip(ENEMY_PROBE) {}
};
// Wears the Probe's pictures, drawn larger; the probe2 pictures in Resources stay unused.
class Probe2 : public EnemyShip {
public:
    Probe2() : EnemyShip(ENEMY_PROBE2) {}
};
class Probe3 : public EnemyShip {
public:
    Probe3() : EnemyShip(ENEMY_PROBE3) {}
};

// A new ship of kind, spawned (not yet listed anywhere).
EnemyShip* makeEnemy(EnemyKind kind);
