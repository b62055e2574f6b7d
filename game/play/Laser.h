// The laser on the right mouse button: each shot is a beam that lives 650 ms, reaches 1280 units
// from the ship toward the mouse pointer, stops at the first enemy and burns it every frame it
// touches it, spraying sparks back toward the ship while the enemy survives; it thins and fades
// out with age. Beams live in a ring of 32 slots, each with a spark emitter and slice. The
// owner's part is set out in Weapon.h; the laser must be deleted before the session's spark system.
#pragma once

#include "play/Weapon.h"

class Enemy;
struct ParticleEmitter;

class Laser : public Weapon {
public:
    // One beam slot.
    struct Vertex {
        vorlik::vec2 end;       // where the beam stops this frame, world units
        uint8_t colour[4] = {}; // RGBA; the alpha fades with age
        float width = 0.0f;     // half the beam's breadth, world units; fades with age
        float born = 0.0f;      // ms
        float dies = 0.0f;      // ms; the beam is dead when dies <= now
    };

    // The three layers a beam is drawn in, in drawing order.
    enum Pass : uint32_t {
        PASS_GUN_GLOW = 0, // a glow round the gun, with glowTexture
        PASS_BODY = 1,     // the beam from the gun to its end, with beamTexture
        PASS_END_GLOW = 2, // a glow round the end, with endTexture
        PASS_COUNT = 3,
    };

    static constexpr uint32_t kSlots = 32;
    static constexpr float kReach = 1280.0f;        // world units from the gun
    static constexpr float kGlowPerWidth = 20.0f;   // a glow's half-size per unit of beam width
    static constexpr float kTextureRepeats = 10.0f; // the beam picture repeats this often along a beam

    vorlik::Texture* glowTexture;               // Resources::proc_particle1_tex; not owned
    vorlik::Texture* endTexture;                // the same picture
    vorlik::Texture* beamTexture;               // Resources::laser_tex: along the beam in u, across it in v
    vorlik::Stack<Laser::Vertex> beams{kSlots}; // the ring; every slot exists
    vorlik::Stack<ParticleEmitter*> sparkEmitters{kSlots}; // of sparkSystem, which owns them; one per slot
    vorlik::Stack<ParticleSlice*> sparkSlices{kSlots};     // owned; emitter i feeds slice i
    uint32_t ringIndex = 0;                                // the slot the next beam takes
    uint8_t colour[4] = {76, 76, 255, 224};                // RGBA of a new beam
    int32_t passes = 4;      // nothing reads it: a beam is drawn in PASS_COUNT passes
    float width = 7.0f;      // a new beam's half-breadth, world units
    float lifetime = 650.0f; // ms

    // 32 dead beams, each with a spark slice and an idle emitter feeding it. Damage 65 to 85 a
    // second of contact, 4 shots a second, 8 energy a shot.
    Laser();
    // Hands the emitters back to sparkSystem (which must still exist), then deletes the slices.
    ~Laser() override;

    // When the gate lets a shot out, a new beam in the next slot of the ring, whatever it held.
    // The direction is not used: beams aim at the mouse in update. Returns what the gate returned.
    float fire(const vorlik::vec2& direction) override;
    // Aims every live beam at the world point under the mouse (g_world's camera as stored, so
    // that near the seam it lies beside the ship) and updates them: updateToward that point.
    // Needs the engine started and g_world.
    void update() override;
    // One frame of every beam toward aimPoint: live beams reach from the gun toward it, stop at
    // the first enemy, burn it for damage per second x Vorlik::sync and fade; dead ones only
    // follow the aim and keep their sparks off.
    void updateToward(const vorlik::vec2& aimPoint);
    // The live beams' quads: pass by pass, each pass once per view copy.
    void drawShots(const SceneState& state, QuadSink& sink) const override;

    // A live beam's quad in one pass. Glows are squares of half-size kGlowPerWidth x width; the
    // body runs from the gun to end, width to each side of the line, its texture coordinate u
    // from 0 at the gun to kTextureRepeats at the end. All in the beam's colour.
    Quad passQuad(Pass pass, const Vertex& beam) const;

private:
    // Beam slot's burn on target at point, the beam coming from `from`.
    void burn(uint32_t slot, Enemy& target, const vorlik::vec2& point, const vorlik::vec2& from);
};

static_assert(std::is_trivially_copyable<Laser::Vertex>::value, "kept in a Stack, copied bytewise");
