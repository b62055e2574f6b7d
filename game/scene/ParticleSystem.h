// Explosions, engine trails and weapon sparks: a fixed ring of particle records, the emitters
// that feed it and the slices (scene nodes) that hold and draw its live particles. Emitting
// takes the next ring record, so when the ring is full the oldest particle is recycled even if
// it is still alive. No allocation per particle. All randomness comes from ParticleSystem::random.
#pragma once

#include "core/Random.h"
#include "core/Stack.h"
#include "math/vec2.h"
#include "math/vec4.h"
#include "scene/Drawable.h"
#include "scene/Particle.h"

#include <cstdint>

namespace vorlik {
class Texture;
}

class ParticleSlice;
struct ParticleEmitter;

// Ownership, for the rooms that use particles:
//  - The system owns its records, its emitters and defaultSlice, and must outlive every use of
//    its emitters. Deleting it empties every slice that still holds its particles, so slices
//    made by createSlice may be deleted before or after it; emit into none of them after.
//  - The caller owns every slice made by createSlice and deletes it, unless the slice was made
//    with deleteWhenEmpty: such a slice deletes itself at its first draw while empty, so add it
//    to a scene only after emitting into it, and keep no pointer to it (no emitter, no weapon).
//    Slices that anything points at are made with (removeWhenEmpty true, deleteWhenEmpty false):
//    they leave the scene when empty and are put back by whoever emits into them next.
//  - Before deleting a slice, remove (removeEmitter) or re-point every emitter that feeds it.
//    Deleting a slice that still holds particles is safe: they become free records.
//  - A slice's draw may take the slice out of its parent or delete it, never another node.
class ParticleSystem {
public:
    static constexpr uint32_t kInitialEmitterCapacity = 128;

    // The particles' own generator, seeded once with the game's fixed seed and never reseeded,
    // so every run shows the same effects.
    static vorlik::Random random;

    Particle* particles;               // capacity + 1 records, owned; the extra one is never used
    uint32_t capacity;
    vorlik::Stack<ParticleEmitter*> emitters{kInitialEmitterCapacity}; // owned, in update order
    vorlik::Texture* texture = nullptr; // not owned; set by the game, e.g. Resources::proc_particle0_tex
    vorlik::vec2 gravity;               // added to every record's end point each second
    // Owned; where emitters and bursts without a slice go. It is in no scene until the game adds
    // it (the engine trail's system is drawn through it), and it never leaves or deletes itself.
    ParticleSlice* defaultSlice;
    uint32_t blendMode = BLEND_ADDITIVE; // given to every slice the system makes
    uint32_t cursor = 0;                // next ring record to use
    // A second setting some callers give (1 for explosions, 512 for an engine trail); it is
    // kept as given and changes nothing.
    uint32_t spareSetting;

    explicit ParticleSystem(uint32_t capacity, uint32_t spareSetting = 0);
    // Deletes the emitters and defaultSlice, empties every slice that holds one of its records
    // (those slices stay alive), then frees the ring.
    ~ParticleSystem();
    ParticleSystem(const ParticleSystem&) = delete; // the records point at the slices of this system
    ParticleSystem& operator=(const ParticleSystem&) = delete;

    // A new emitter with the default settings, fed into slice (null means defaultSlice).
    ParticleEmitter* createEmitter(ParticleSlice* slice);
    // Takes the emitter out of the list (the last one moves into its place) and deletes it.
    // Any non-null emitter is deleted, even one this system does not list: never pass another
    // system's emitter, which that system would then still update.
    void removeEmitter(ParticleEmitter* emitter);
    // A new slice bound to this system, visible, drawn in world coordinates, in blendMode; the
    // caller owns it (see above).
    ParticleSlice* createSlice(bool removeWhenEmpty, bool deleteWhenEmpty);
    // Names for createSlice's two switches, so that a call says which slice it asks for.
    static constexpr bool kLeaveWhenEmpty = true, kStayWhenEmpty = false;   // removeWhenEmpty
    static constexpr bool kDeleteWhenEmpty = true, kKeepWhenEmpty = false;  // deleteWhenEmpty

    // A burst of count particles into slice (null means defaultSlice), born now. Lives are
    // whole milliseconds, lifeMin <= life < lifeMax (lifeMin when equal); direction is normalised here and may be (0, 0),
    // in which case the particles only drift by their scatter; spread is the full cone in
    // degrees around direction; radius scatters the start points; speed is the distance
    // travelled over the whole life; sizes are half the quad's edge.
    void emit(ParticleSlice* slice, uint32_t count, int32_t lifeMin, int32_t lifeMax, vorlik::vec2 position,
              vorlik::vec2 direction, vorlik::vec4 colorA, vorlik::vec4 colorB, float radius, float sizeStartMin,
              float sizeStartMax, float sizeEndMin, float sizeEndMax, float speedMin, float speedMax, float spread);

    // Once per game frame: gravity moves every record's end point, then each emitter emits the
    // particles its rate has made due.
    void update();

private:
    // The next ring record, taken out of whatever slice held it.
    Particle& takeRecord();
};
