// The plasma gun on the left mouse button: violet bolts that fly straight at 750 units a second
// for 1500 ms, fading out, and hit the first enemy in their path; an enemy that survives the hit
// throws a spray of sparks. Bolts live in a ring of slots that doubles when every slot is busy,
// each slot with its own spark slice. The owner's part is set out in Weapon.h; the plasma itself
// may be deleted before or after the session's spark system.
#pragma once

#include "play/Weapon.h"

class Enemy;

class Plasma : public Weapon {
public:
    // One bolt slot.
    struct Vertex {
        vorlik::vec2 position; // world units; never wrapped, a bolt flies on past the world's edge
        vorlik::vec2 velocity; // world units per second
        uint32_t born = 0;     // ms
        uint32_t dies = 0;     // ms; the slot is free when dies <= now
    };

    static constexpr uint32_t kInitialSlots = 64;

    vorlik::Stack<Vertex> shots{kInitialSlots};          // the ring; every slot exists (count == capacity)
    vorlik::Stack<ParticleSlice*> sparks{kInitialSlots}; // owned: slot i's sparks go through sparks[i]
    vorlik::Texture* texture;                            // Resources::plasmabullet_tex; not owned
    uint8_t colour[4] = {128, 113, 255, 255};            // RGBA; alpha is replaced by the fade
    uint32_t ringIndex = 0;   // where the next free-slot search starts: the slot used last
    float shotRadius = 16.0f; // half a bolt's picture, world units
    float speed = 750.0f;     // world units per second
    uint32_t lifetime = 1500; // ms
    uint32_t passes = 3;      // each bolt is drawn this many times over itself, to brighten it

    // 64 free slots, each with its spark slice. Damage 5 to 15 a hit, 5 shots a second, 2
    // energy a shot.
    Plasma();
    // Deletes the spark slices; their sparks vanish, as do the bolts in flight.
    ~Plasma() override;

    // When the gate lets a shot out: a bolt from the gun's position along direction (any length;
    // the ship's own velocity is not added) in the next free slot. Returns what the gate returned.
    float fire(const vorlik::vec2& direction) override;
    // Moves every live bolt one frame and applies its hit, if any.
    void update() override;
    // The live bolts' quads, sent passes times per view copy.
    void drawShots(const SceneState& state, QuadSink& sink) const override;

    // A live bolt as drawn at time now (ms): a square of half-size shotRadius in colour, its
    // alpha falling from 255 at birth to 0 at the end of lifetime.
    Quad boltQuad(const Vertex& bolt, uint32_t now) const;

private:
    // The slot search: from ringIndex on, round the ring, to the first free slot; a full ring
    // grows first. ringIndex is left on the slot found.
    uint32_t takeFreeSlot(uint32_t now);
    // Doubles the ring, the new slots free, and adds a spark slice for each.
    void grow();
    // Slot's sparks, where a bolt hit target (still alive) at point.
    void sparkBurst(uint32_t slot, const Enemy& target, const vorlik::vec2& point);
};

static_assert(std::is_trivially_copyable<Plasma::Vertex>::value, "kept in a Stack, copied bytewise");
