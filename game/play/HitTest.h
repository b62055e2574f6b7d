// The one hit test every shot uses: a shot's step this frame, from its old position to its new
// one, against the ships of the other side, each tested through its nine wrap images. It
// returns the first ship the step runs into and where the step enters that ship's circle.
// Each side keeps its own HitTest, whose scratch lists keep their memory between calls.
#pragma once

#include "core/Stack.h"
#include "math/vec2.h"
#include "play/Actor.h"
#include "play/WorldGeometry.h"

#include <cstdint>
#include <type_traits>

struct hit_struct {
    Actor* target = nullptr; // the ship hit, null for no hit
    vorlik::vec2 point;      // entry point, in the coordinates of the ship image that was hit
};

static_assert(std::is_trivially_copyable<hit_struct>::value, "kept in a Stack");

// Distance from p to the infinite line through a and b, the length taken in double precision.
// For a = b this is 0 / 0, which compares below nothing: a shot that does not move never hits.
double lineDistance(const vorlik::vec2& p, const vorlik::vec2& a, const vorlik::vec2& b);

// Where the step from `from` towards `to` first meets the circle of radius r round centre: the
// smaller root, so a start inside the circle gives a point behind it. (0, 0) when the line
// misses the circle. Only called for a step of non-zero length.
vorlik::vec2 entryPoint(const vorlik::vec2& from, const vorlik::vec2& to, const vorlik::vec2& centre, float r);

class HitTest {
public:
    vorlik::Stack<hit_struct> candidates{64}; // (ship, image) whose circle touches the step's box
    vorlik::Stack<float> keys{64};            // squared distance of each candidate's image to `from`
    vorlik::Stack<vorlik::vec2> images{128};  // the nine images of the ship being tested

    // The first ship of targets hit by the step from `from` to `to` (see the .cpp for the
    // rules). T is any Actor subclass.
    template <typename T>
    hit_struct collide(const vorlik::Stack<T*>& targets, const vorlik::vec2& from, const vorlik::vec2& to)
    {
        begin(from, to);
        if (targets.count == 0) return hit_struct();
        for (uint32_t i = 0; i < targets.count; ++i) consider(targets.data[i]);
        return choose(from, to);
    }

private:
    float lowX = 0, highX = 0, lowY = 0, highY = 0; // the step's bounding box

    void begin(const vorlik::vec2& from, const vorlik::vec2& to);
    // Makes the first image of ship whose circle touches the step's box a candidate.
    void consider(Actor* ship);
    hit_struct choose(const vorlik::vec2& from, const vorlik::vec2& to);
};
