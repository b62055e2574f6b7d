// The ship the user flies: thrust on w/a/s/d paid from one energy pool that also pays for the
// shots, the plasma gun on the left mouse button and the laser on the right, both aimed at the
// world point under the mouse. It takes hull damage, explodes, glides as a wreck to a random
// respawn point and comes back while the session has lives. Made by the session in start().
// Ownership: the ship owns its group and five sprites, both guns, the exhaust system and the
// energy text; the session adds the group and the guns to g_world, the ship adds the rest.
#pragma once

#include "math/vec2.h"
#include "player/Friend.h"

#include <cstdint>

class Group;
class Laser;
class ParticleSystem;
class Plasma;
class Sprite;
class Text;
struct ParticleEmitter;

class Player : public Friend {
public:
    static constexpr float kThrust = 500.0f;       // world units per second, per second
    static constexpr float kBrake = 300.0f;        // world units per second, per second
    static constexpr float kMaxSpeed = 350.0f;     // world units per second; also the drift's cap
    static constexpr float kFreshHull = 125.0f;    // a new or respawned ship; a repair gives 100
    static constexpr float kDeathWait = 2500.0f;   // ms the wreck stays before it glides
    static constexpr float kGlideTime = 3500.0f;   // ms of the glide to the respawn point
    static constexpr float kFadeInTime = 1000.0f;  // ms of growing in, untouchable
    static constexpr float kRespawnDistance = 1920.0f; // world units from the world's origin

    ParticleSystem* exhaust;          // 256 particles; its default slice is in g_world
    ParticleEmitter* exhaustEmitter;  // the exhaust's one emitter
    Plasma* plasma;                   // left button
    Laser* laser;                     // right button
    Group* shipGroup;                 // the drawable: hullBottom, glowBottom, hullMiddle, hullTop, glowTop
    Sprite* hullBottom;               // 64 x 64, turns backwards
    Sprite* hullMiddle;               // 64 x 64, turns slowly forwards
    Sprite* hullTop;                  // 64 x 64
    Sprite* glowBottom;               // 60 x 60, additive, turns with hullBottom
    Sprite* glowTop;                  // 72 x 72, additive
    Text* energyText;                 // "Energy: " and the energy, top left of the HUD

    vorlik::vec2 velocity;            // world units per second
    vorlik::vec2 drift;               // trails the velocity; the camera leads the ship by it
    float energy = 350.0f;
    float maxEnergy = 350.0f;
    float energyRegen = 35.0f;        // per second
    float spareFactor = 1.0f;         // kept for layout; nothing reads it
    float thrustCost = 25.0f;         // energy per second of thrust
    float driftLimit;                 // length of (500, 500)
    int32_t boostActive = 0;          // written by the speed boost powerup, read by nothing here
    float boostStart = 0.0f;
    float boostEnd = 0.0f;
    float deathTime = 0.0f;           // ms: when the wreck starts gliding; 0 while alive
    float returnTime = 0.0f;          // ms: when the ship comes back; 0 while alive
    float fadeStart = 0.0f;           // ms: the fade-in after a respawn
    float fadeEnd = 0.0f;
    vorlik::vec2 deathPosition;
    vorlik::vec2 respawnPosition;

    // Builds the ship at the origin, alive and full size, and adds the exhaust's slice to
    // g_world and the energy text to g_hud (when those scenes exist).
    Player();
    // Leaves the session's lists and deletes everything the ship owns.
    ~Player() override;

    // One frame: energy, then the phase (growing in, flying, gliding as a wreck, respawning),
    // the guns, the speed limit, the drift, the wrap, the drawable, the glows and the turning
    // hull layers.
    void update() override;
    // Ignored while growing in (true). Otherwise true while hull is left; a hit that takes the
    // hull to 0 or below kills the ship (false).
    bool damage(float amount) override;
    // Comes back at the respawn point: hull 125, one second of growing in, one life spent and
    // the lives notice on the HUD.
    void respawn() override;
    // Explodes in two bursts, vanishes and, with lives left, sets up the glide; with none the
    // ship leaves the game.
    void die() override;

private:
    // Thrust, braking, exhaust, aiming and firing from this frame's input.
    void control();
    void setEnergyText();
};
