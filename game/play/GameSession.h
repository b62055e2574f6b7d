// The one object that runs a game: the actor lists, the waves with their timer and growing
// toughness, the lives, the screen shake and the game-over state. main creates it as g_game
// when the title's fade ends and keeps it to the end; there is no restart.
// Ownership: the lists own nothing; each listed actor deletes itself (and leaves the lists).
// Still to come here: the player, the HUD boxes, the starfield, the particle systems, the
// enemies of each wave and the per-frame routine that drives them.
#pragma once

#include "core/Stack.h"
#include "math/vec2.h"

#include <cstdint>

class Actor;
class Enemy;
class Friend;
class Powerup;
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

    Text* gameOverText;          // "Game Over" in the big font, owned; shown after game over
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

    GameSession();
    ~GameSession();
    GameSession(const GameSession&) = delete;
    GameSession& operator=(const GameSession&) = delete;

    // Begins the next wave: its timer (now + 10 x old wave + 90000 ms), the number, the
    // "Wave N incoming" announcement on the HUD and the difficulty factors.
    void startWave();
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
