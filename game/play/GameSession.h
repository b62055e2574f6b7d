// The one object that runs a game: the actor lists, the player, the HUD boxes, the starfield,
// the spark and explosion particles, the waves with their timer and growing toughness, the
// lives, the screen shake and the game-over state. main creates it as g_game when the title's
// fade ends, then calls start() once and frame() every frame; there is no restart.
// Ownership: the lists own nothing (each listed actor deletes itself and leaves the lists); the
// session owns the player, the boxes (and through them the counters), the reticle, the
// starfield, the game-over text and the particle systems. Its destructor undoes start().
#pragma once

#include "core/Stack.h"
#include "math/vec2.h"

#include <cstdint>

class Actor;
class Enemy;
class Friend;
class HUD_RadarBox;
class HUD_ScoreBox;
class HUD_WeaponBox;
class ParticleSlice;
class ParticleSystem;
class Player;
class Powerup;
class Reticle;
class ScoreCounter;
class Starfield;
class Text;

class GameSession {
public:
    static constexpr float kWaveDuration = 90000.0f;    // ms a wave lasts at the latest
    static constexpr float kWaveDurationStep = 10.0f;   // ms added per wave already played
    static constexpr int32_t kStartingLives = 3;

    vorlik::Stack<Actor*> actors;     // every live actor; the frame updates exactly these
    vorlik::Stack<Enemy*> enemies;    // every live enemy
    vorlik::Stack<Friend*> friends;   // what enemies hunt and enemy shots hit: the living ship
    vorlik::Stack<Actor*> others;     // made and freed with the rest, never filled
    vorlik::Stack<Powerup*> powerups; // every live powerup

    Player* player = nullptr;          // owned; made by start()
    Reticle* reticle = nullptr;        // owned; made by start()
    ParticleSystem* sparkParticles = nullptr;     // 1024 particles, owned: the guns' impact sparks
    ParticleSystem* explosionParticles = nullptr; // 4096 particles, owned: every ship's explosion
    ParticleSlice* explosionSlice = nullptr;      // owned; every explosion is emitted into it
    Starfield* starfield = nullptr;               // 512 stars, owned; drawn first in g_world
    ScoreCounter* scoreCounter = nullptr;   // the score box's counter, owned by that box
    ScoreCounter* reserveCounter = nullptr; // the weapon box's third counter, owned by that box
    HUD_ScoreBox* scoreBox = nullptr;  // owned; made by start()
    HUD_WeaponBox* weaponBox = nullptr;
    HUD_RadarBox* radarBox = nullptr;
    Text* gameOverText = nullptr; // "Game Over" in the big font, owned; shown after game over
    float gameOverStart = 0.0f;  // ms: the text's fade-in window
    float gameOverEnd = 0.0f;
    float shakeStrength = 0.0f;  // world units
    float shakeStart = 0.0f;     // ms
    float shakeEnd = 0.0f;       // ms
    float toughness = 1.0f;      // x 1.1 per wave: enemy hit points and score values
    // x 1.07 and x 1.002 per wave; nothing reads them. They start at 1 so that the products
    // are defined.
    float speedFactor = 1.0f;
    float fireFactor = 1.0f;
    int32_t wave = 0;            // the current wave; 0 before the first
    float nextWaveTime = 0.0f;   // ms: when the next wave starts at the latest
    bool playing = false;        // from start() until game over
    int32_t lives = kStartingLives;
    int32_t reserve = 0;         // raised by powerups

    static constexpr float kFirstWaveDelay = 5000.0f;  // ms from start() to the first wave
    static constexpr float kGameOverFade = 1500.0f;    // ms the "Game Over" text takes to show

    // The lists, the particle systems with the explosion slice, the starfield and the game-over
    // text; nothing goes into a scene yet, and no gun exists yet (guns take slices of
    // sparkParticles as they are built, so g_game must be set before start()).
    GameSession();
    ~GameSession();

    // Empties both scenes and builds the game: the starfield, the HUD boxes and reticle, the
    // player with its guns at the world's centre, the score text and the explosion slice; the
    // first wave comes 5 s later.
    void start();
    // One frame: reticle, actors, particles, the game-over text or the wave rule, then the
    // camera follows the ship (with its drift and any shake) and the stars scroll with it.
    void frame();
    GameSession(const GameSession&) = delete;
    GameSession& operator=(const GameSession&) = delete;

    // Begins the next wave: its timer (now + 10 x old wave + 90000 ms), the number, the
    // "Wave N incoming" announcement on the HUD, the difficulty factors and the wave's ships
    // (WaveTable.h), which join the ships left from earlier waves; then every enemy,
    // and after them the player's guns, move to the top of the world's draw order (the ship
    // itself stays where it is, under the enemies).
    void startWave();
    // The new wave's batches, type by type in table order, at the current toughness; each
    // ship is spawned and appended to enemies and actors.
    void spawnBatches();
    // Blows up every enemy that has a wrap image closer than radius to centre. The walk moves
    // on before each explosion, so the enemy that the removal moves into the freed slot is
    // skipped and escapes this blast.
    void areaDamage(const vorlik::vec2& centre, float radius);
    // Starts a screen shake of the given length (ms) and strength (world units).
    void shake(float duration, float strength);
    // This frame's shake displacement of the camera: zero outside a shake; otherwise a random
    // direction in [-1, 1]^2 (y drawn first, from g_rand) scaled by the strength falling
    // linearly to 0 over the shake.
    vorlik::vec2 shakeOffset();

    // Whether a wave starts this frame: the ship must be alive, and either the waves have begun
    // and no enemy is left, or the timer has strictly passed.
    static bool waveIsDue(bool shipAlive, int32_t wave, uint32_t enemyCount, float now, float nextWaveTime);
};

extern GameSession* g_game;
