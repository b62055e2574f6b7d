// A spinning token that a wrecked enemy may leave behind. It drifts and slows down; the first
// ship of the player's side that comes within its pick-up range draws it in over half a second,
// and then it gives the player one of seven effects, announces it in green and deletes itself.
// The token registers nowhere by itself: its maker places it, puts its group into a scene and
// appends it to g_game's powerups and actors. Its effects need a started session (g_game).
#pragma once

#include "math/vec2.h"
#include "play/Actor.h"

#include <cstdint>

class Group;
class Sprite;

enum PowerupKind : int {
    POWERUP_UPGRADE = 0, // "Upgrade +" and 10 to 40 into the reserve
    POWERUP_ENERGY,      // full energy
    POWERUP_SHIELD,      // full shield (none on the player's ship)
    POWERUP_EXTRA_SCORE, // 500 to 1400 points
    POWERUP_HULL,        // hull back to its maximum
    POWERUP_SPEED_BOOST, // the boost window, 5 to 9 seconds
    POWERUP_MEGANUKE,    // blows up every enemy near the ship, with a white flash and a shake
    POWERUP_KIND_COUNT,
};

class Powerup : public Actor {
public:
    static constexpr float kCollectTime = 500.0f; // ms of the glide into the catcher

    int kind;                 // a PowerupKind, drawn at construction
    Group* group;             // owned; the drawable: sprite, then glow
    Sprite* sprite;           // owned; 48 x 48, a 16 x 16 grid of animation frames
    Sprite* glow;             // owned; the same grid and frame, additive
    vorlik::vec2 velocity;    // world units per second, slowed by a gentle drag
    float frame = 0.0f;       // animation frame, wrapped into the grid's 256
    float frameRate = 25.0f;  // frames per second
    bool collected = false;   // caught and gliding into its collector
    float collectStart = 0.0f; // ms
    float collectEnd = 0.0f;   // ms
    vorlik::vec2 collectFrom; // where it was caught
    Actor* collector = nullptr; // the friend that caught it, not owned; null once it has left friends
    vorlik::vec2 collectTo;   // the collector's last position seen while it was in friends

    // Draws the velocity (y, then x) and then the kind from g_rand and builds the sprites; the
    // token sits at the origin until its maker places it.
    Powerup();
    // Leaves the session's powerups and actors, then deletes the group and both sprites.
    ~Powerup() override;

    // Animates; drifts until a friend catches it, then glides into that friend, shrinking, and
    // at the end of the glide applies its effect and deletes itself.
    void update() override;
    // Gives the session's player this kind's effect, whichever friend caught the token, and
    // floats its message in green just above the token.
    virtual void apply();

    // The kind for a first draw in 0..99 and a second in 0..109: up to 89 the first draw makes
    // an Upgrade (and the second is not read); above it the second draw picks one of the six
    // other kinds by its band.
    static int kindFor(int32_t first, int32_t second);
    // Draws a kind from g_rand: the first draw, and the second only when the first asks for it.
    static int drawKind();
};
