// Anything in the game that changes from frame to frame (the ship, enemies, powerups, floating
// texts, HUD counters): a little game state plus the Drawable that shows it. The actor moves;
// once a frame it copies its state onto its drawable and the scene draws that. Actors live in
// the session's lists (ActorLists.h); each subclass removes itself from them when deleted.
#pragma once

#include "math/vec2.h"

class Drawable;

class Actor {
public:
    Drawable* drawable = nullptr; // what shows the actor; not owned here (subclasses delete theirs)
    vorlik::vec2 position;        // world units, kept wrapped into the world
    float radius = 0.0f;          // world units: hit tests, spawn rules, waypoints
    float rotation = 0.0f;        // degrees
    float scale = 1.0f;           // copied to the drawable every frame

    Actor() = default;
    Actor(const Actor&) = delete; // list entries and drawables would be shared
    Actor& operator=(const Actor&) = delete;
    virtual ~Actor();

    // Wraps the position into the world and copies position (z = 0), scale and rotation onto
    // the drawable, if there is one. Moving subclasses end their own update with this.
    virtual void update();
};
