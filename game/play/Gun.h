// A gun of either side (Weapon for the player's ship, EnemyWeapon for the enemies'): an Effect in
// g_world that draws all of its shots at once, the fire-rate gate that decides when a shot may
// leave and what it costs, and the numbers of every kind of gun. Which ships its shots hit is
// the side's own hit test, collide. What a gun draws is decided in drawShots and handed to a
// QuadSink, so a test can read every quad without a display; draw hands the same quads to GL.
#pragma once

#include "core/Stack.h"
#include "math/mat2.h"
#include "math/vec2.h"
#include "play/HitTest.h"
#include "scene/Effect.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace vorlik {
class Texture;
}

class ParticleSlice;
class ParticleSystem;

class Gun : public Effect {
public:
    static constexpr float kEveryCall = -1.0f; // a fireRate that lets every call fire

    // The guns, each a row of the numbers table in Gun.cpp.
    enum Kind : uint32_t {
        KIND_PLASMA = 0,
        KIND_LASER = 1,
        KIND_ENEMY_PLASMA = 2,
    };

    // Who fires: the player's guns hit the enemies, the enemies' guns hit the friends.
    enum Team : uint32_t {
        TEAM_PLAYER = 0,
        TEAM_ENEMY = 1,
    };

    // One corner of a drawn quad as GL reads it, 20 bytes apart.
    struct QuadVertex {
        float x, y;         // world units
        float u, v;         // texture coordinates
        uint8_t r, g, b, a; // colour bytes
    };

    // Four corners in GL_QUADS order.
    struct Quad {
        QuadVertex corners[4];
    };

    // Where drawShots sends its quads: one call per batch and view copy, in drawing order.
    class QuadSink {
    public:
        virtual ~QuadSink() = default;
        // count vertices, four per quad, in world units, textured with texture (null for none)
        // and drawn through modelView (the scene's transform moved by one view copy's offset).
        // The vertices live only until the call returns.
        virtual void drawQuads(vorlik::Texture* texture, const QuadVertex* vertices, uint32_t count,
                               const vorlik::mat2& modelView) = 0;
    };

    int32_t level = 1; // nothing reads it
    float damageMin;   // each hit's damage is uniform in [damageMin, damageMax)
    float damageMax;
    float fireRate;              // shots per second; 0 never fires, kEveryCall fires at every call
    float power;                 // what fire returns when a shot leaves: the energy the shot costs
    float lastShot = 0.0f;       // ms: when the gate last let a shot out
    ParticleSystem* sparkSystem; // g_game->sparkParticles when the gun was made; not owned

    // The kind's damage, fire rate and power, sparks from g_game->sparkParticles (g_game must
    // be set). Visible, untransformed and additive: shots are glows added onto the picture.
    explicit Gun(Kind kind);

    // The fire-rate gate: power when a shot may leave now (lastShot becomes now), else 0. The
    // gate counts from the frame that fired, not from when the shot was due, so at 16 ms frames
    // a gun of 5 shots a second fires every 208 ms. The direction is for the guns that aim.
    virtual float fire(const vorlik::vec2& direction);
    // The first ship of the other side that the step from `from` to `to` runs into, and where
    // (HitTest.h). shotIndex and shotRadius are the caller's slot and shot size; the test reads
    // neither, since only the ship's radius counts.
    virtual hit_struct collide(const vorlik::vec2& from, const vorlik::vec2& to, uint32_t shotIndex,
                               float shotRadius) = 0;
    // Once a frame, from the owner: moves the shots and applies their hits. Does nothing here.
    virtual void update();

    // The scene's draw: drawShots through GL, with the textured program.
    void draw(const SceneState& state) override;
    // Every quad of this frame's shots, sent to sink once per view copy of state.
    virtual void drawShots(const SceneState& state, QuadSink& sink) const = 0;

    // Where the shots leave from: the gun's position in the plane.
    vorlik::vec2 origin() const;

    // A square of half-size halfSize round centre, texture corners 0 to 1, in one colour.
    static Quad square(const vorlik::vec2& centre, float halfSize, const uint8_t colour[4]);

protected:
    // A new spark slice of sparkSystem, owned by the caller. It leaves the scene when its
    // sparks are gone and is put back by the next hit; it never deletes itself, since the gun
    // keeps pointing at it.
    ParticleSlice* newSparkSlice() const;
    // The list every gun builds its quads in; it keeps its memory for the program's life.
    static vorlik::Stack<QuadVertex>& quadList();
    static void append(vorlik::Stack<QuadVertex>& list, const Quad& quad);
    // Sends the list to sink `times` times per view copy of state, from the first copy to the
    // last; nothing when the list is empty.
    static void sendToViews(const SceneState& state, vorlik::Texture* texture,
                            const vorlik::Stack<QuadVertex>& list, uint32_t times, QuadSink& sink);
};

static_assert(sizeof(Gun::QuadVertex) == 20, "GL reads the vertices 20 bytes apart");
static_assert(offsetof(Gun::QuadVertex, u) == 8, "texture coordinates at byte 8");
static_assert(offsetof(Gun::QuadVertex, r) == 16, "colour bytes at byte 16");
static_assert(std::is_trivially_copyable<Gun::QuadVertex>::value, "kept in a Stack, copied bytewise");
