// The plasma gun of either side (Side is Weapon for the player's Plasma, EnemyWeapon for the
// enemies' EnemyPlasma): bolts that fly straight at 750 units a second for 1500 ms, fading out,
// and hit the first ship of the other side in their path; a ship that survives the hit throws a
// spray of sparks. Bolts live in a ring of slots that doubles when every slot is busy, each slot
// with its own spark slice. Deleting the gun ends its bolts in flight and their sparks; it may
// be deleted before or after the session's spark system. The owner's part is in Side's header.
#pragma once

#include "play/EnemyWeapon.h"
#include "play/Weapon.h"

class Actor;

// What tells the two sides' bolts apart, one row per Gun::Team.
struct PlasmaTeamNumbers {
    Gun::Kind kind;     // damage, fire rate and energy a bolt: a row of the guns' table
    uint32_t slots;     // the ring's size when the gun is made
    uint8_t colour[4];  // RGBA; alpha is replaced by the fade
    float shotRadius;   // half a bolt's picture, world units
};

inline constexpr PlasmaTeamNumbers kPlasmaTeams[] = {
    {Gun::KIND_PLASMA, 64, {128, 113, 255, 255}, 16.0f},     // the player's: violet
    {Gun::KIND_ENEMY_PLASMA, 16, {25, 255, 50, 255}, 12.0f}, // the enemies': green and smaller
};

template <typename Side>
class PlasmaGun : public Side {
public:
    // One bolt slot.
    struct Vertex {
        vorlik::vec2 position; // world units; never wrapped, a bolt flies on past the world's edge
        vorlik::vec2 velocity; // world units per second
        uint32_t born = 0;     // ms
        uint32_t dies = 0;     // ms; the slot is free when dies <= now
    };

    static constexpr uint32_t kInitialSlots = kPlasmaTeams[Side::kTeam].slots;

    vorlik::Stack<Vertex> shots{kInitialSlots};          // the ring; every slot exists (count == capacity)
    vorlik::Stack<ParticleSlice*> sparks{kInitialSlots}; // owned: slot i's sparks go through sparks[i]
    vorlik::Texture* texture;                            // Resources::plasmabullet_tex; not owned
    uint8_t colour[4];                                   // RGBA; alpha is replaced by the fade
    uint32_t ringIndex = 0;   // where the next free-slot search starts: the slot used last
    float shotRadius;         // half a bolt's picture, world units
    float speed = 750.0f;     // world units per second
    uint32_t lifetime = 1500; // ms
    uint32_t passes = 3;      // each bolt is drawn this many times over itself, to brighten it

    // kInitialSlots free slots, each with its spark slice; the team's numbers.
    PlasmaGun();
    // Deletes the spark slices; their sparks vanish, as do the bolts in flight.
    ~PlasmaGun() override;

    // When the gate lets a shot out: a bolt from the gun's position along direction (any length;
    // the firing ship's own velocity is not added) in the next free slot. Returns what the gate
    // returned.
    float fire(const vorlik::vec2& direction) override;
    // Moves every live bolt one frame and applies its hit, if any.
    void update() override;
    // The live bolts' quads, sent passes times per view copy.
    void drawShots(const SceneState& state, Gun::QuadSink& sink) const override;

    // A live bolt as drawn at time now (ms): a square of half-size shotRadius in colour, its
    // alpha falling from 255 at birth to 0 at the end of lifetime.
    Gun::Quad boltQuad(const Vertex& bolt, uint32_t now) const;

private:
    // The slot search: from ringIndex on, round the ring, to the first free slot; a full ring
    // grows first. ringIndex is left on the slot found.
    uint32_t takeFreeSlot(uint32_t now);
    // Doubles the ring, the new slots free, and adds a spark slice for each.
    void grow();
    // Slot's sparks, where a bolt hit target (still alive) at point.
    void sparkBurst(uint32_t slot, const Actor& target, const vorlik::vec2& point);
};

// Both sides' guns are made in PlasmaGun.cpp.
extern template class PlasmaGun<Weapon>;
extern template class PlasmaGun<EnemyWeapon>;
