// What every hostile ship does: it fades in and grows at a safe random spot, wanders between
// random waypoints, hunts the nearest image of a friend across the wrapping world, circles it
// and shoots it at close range, and dies in an explosion that scores, may leave a powerup and
// floats its value where it was. The seven ship types (EnemyTypes.h) add only numbers and
// pictures. Ownership: the ship owns its gun; the wave lists it in g_game's enemies and actors
// and the ship leaves both when it is deleted, which happens inside explode().
#pragma once

#include "core/Stack.h"
#include "math/vec2.h"
#include "play/Actor.h"

#include <cstdint>

class EnemyPlasma;
class Friend;

class Enemy : public Actor {
public:
    static constexpr float kFadeInTime = 750.0f; // ms of fading in and growing after a spawn

    EnemyPlasma* gun;           // owned; drawn in g_world, moved and updated by the ship
    vorlik::vec2 target;        // where the ship steers: a waypoint or an image of a friend
    vorlik::vec2 velocity;      // world units per second
    float acceleration = 1.0f;  // kept for layout; nothing reads it
    float topSpeed = 50.0f;     // world units per second on each axis; thrust is 3x this per second
    float hitPoints = 0.0f;
    int32_t scoreValue = 100;   // points for the kill
    float fadeStart = 0.0f;     // ms: the spawn fade-in; fadeEnd is 0 once it is over
    float fadeEnd = 0.0f;
    float sightRange = 800.0f;  // friends closer than this are hunted
    float fireRange = 800.0f;   // friends closer than this are shot at; also sets the close manoeuvres
    float dropChance = 0.0f;    // 0 to 1: the chance of leaving a powerup

    // Radius 100 and the numbers above; makes the gun, so g_game must be set. Not yet placed:
    // respawn() does that.
    Enemy();
    // Leaves the session's enemies and actors and deletes the gun, with its shots and sparks.
    ~Enemy() override;

    // One frame: fade-in, hunting or wandering, thrust, speed box, move, the gun, then the wrap
    // and the drawable.
    void update() override;
    // Takes a hit of amount: true while the ship survives. A hit that takes hitPoints to 0 or
    // below explodes the ship (it is deleted) and floats its score value where it was: false.
    virtual bool damage(float amount);
    // Puts the gun into g_world and the ship at a safe random spot with a random waypoint,
    // 25 hit points, 100 points, at rest, and starts the fade-in from nothing.
    virtual void respawn();
    // Asks the gun for a shot toward target; the gun's own rate decides whether one leaves.
    virtual void fire();
    // The death: explosion, score, maybe a powerup, then the ship deletes itself. Also the
    // way the MegaNuke kills, which shows no score popup.
    virtual void explode();

    // Where a new ship may appear: up to five random points of the world, stopping early once
    // the running minimum of the plain distances to the friends (over all tries so far, never
    // reset) is at least 1024. So one early try close to a friend makes all five run, and the
    // fifth point is kept wherever it lies. Draws x then y from g_rand for each try.
    static vorlik::vec2 safeSpot(const vorlik::Stack<Friend*>& friends);
    // The thrust toward target for a ship of that top speed and fire range (world units per
    // second, per second): full thrust straight at it from afar, half thrust turned a quarter
    // turn clockwise within half the fire range (circling), none within a quarter of it.
    static vorlik::vec2 thrust(const vorlik::vec2& position, const vorlik::vec2& target, float topSpeed,
                               float fireRange);
    // velocity with each component clamped to [-topSpeed, topSpeed]: a box, so a diagonal
    // flight reaches topSpeed x the square root of 2.
    static vorlik::vec2 speedBox(const vorlik::vec2& velocity, float topSpeed);

private:
    // The scan of every friend's nine images: the last one in sight becomes the target, and the
    // first one in firing range is fired at and ends the scan. True when it fired.
    bool hunt();
};
