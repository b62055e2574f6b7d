// Hull: the shared description and renderer of the game's craft. A design is a function
// from a point of the picture (x right, y toward the nose, both in [-1, 1]) to a HullSample,
// usually built with HullBuilder by stacking parts; renderHull shades it into a body picture
// (opaque inside, transparent outside) and a glow picture that holds only light.
#pragma once

#include <functional>

#include "core/Canvas.h"
#include "core/Sdf.h"

namespace assetgen {

struct Material {
    V3 albedo{0.5f, 0.5f, 0.5f};
    float gloss = 0.4f;  // specular strength
    float glass = 0;     // 1 = cockpit glass
    V3 emit{};           // light the surface gives off itself (also lands in the glow)
};

struct HullSample {
    float dist = 1e9f;  // silhouette distance, negative inside
    float height = 0;   // relief, in picture units
    Material mat;
    float groove = 0;   // panel-line darkening, 0..1
};

// Stacks parts: each later part lies on top of the earlier ones where it covers them.
class HullBuilder {
public:
    explicit HullBuilder(V2 p) : p_(p) {}

    // A plate whose outline is d, raised to base + a rounded bevel of the given width.
    void part(float d, float base, float bevel, const Material& m);
    // A recessed line (panel seam) along the zero set of d, width in picture units.
    void seam(float d, float width);
    // Paints a marking of the given colour where d < 0, with soft edges.
    void paint(float d, V3 colour, float softness);
    // Cuts the part added last into plates of the given size, mirrored about the centre
    // line, each a little lighter or darker than its neighbours.
    void plating(V2 cell, float seamWidth, float variation);
    const HullSample& sample() const { return s_; }
    V2 p() const { return p_; }

private:
    V2 p_;
    HullSample s_;
    bool inLastPart_ = false;
};

using HullDesign = std::function<HullSample(V2)>;
using LightDesign = std::function<V3(V2)>;

struct HullStyle {
    V3 rimLight{0.9f, 0.3f, 0.1f};  // colour of the thin edge light in the glow
    float rimStrength = 0.22f;
    float haloSigma = 2.5f;         // pixels of blur around emissive surfaces
    uint64_t grimeSeed = 1;
};

struct HullPictures {
    Canvas body;
    Canvas glow;
};

// Shades a design at size x size pixels. extraLight adds free light to the glow picture
// (flames, running-light halos), in the same coordinates.
HullPictures renderHull(int size, const HullDesign& design, const LightDesign& extraLight, const HullStyle& style);

// Light helpers for LightDesigns.
// A round soft light at c of radius r (Gaussian sigma = r).
V3 lightDot(V2 p, V2 c, float r, V3 colour);
// An engine flame from a nozzle at c of half-width w, pointing along dir (unit), length len:
// white-hot at the nozzle, orange, then red at the tail.
V3 lightFlame(V2 p, V2 c, V2 dir, float w, float len, float strength);

} // namespace assetgen
