// Sdf: signed distance functions of 2D shapes (negative inside) and their combinations,
// the vocabulary every silhouette of the game's art is written in. Distances are in the
// caller's units; coverage() turns one into antialiased opacity for a given pixel size.
#pragma once

#include <vector>

#include "core/Vec.h"

namespace assetgen {

float sdCircle(V2 p, float r);
float sdBox(V2 p, V2 halfSize);
float sdRoundBox(V2 p, V2 halfSize, float radius);
// A capsule: the segment a..b thickened by r.
float sdSegment(V2 p, V2 a, V2 b, float r = 0);
// Any simple polygon, points in order.
float sdPolygon(V2 p, const std::vector<V2>& poly);
// Ellipse with semi-axes a (x) and b (y); a close approximation, exact on the axes.
float sdEllipse(V2 p, float a, float b);
// A ring of mean radius r and half-thickness t.
float sdRing(V2 p, float r, float t);

inline float opUnion(float a, float b) { return std::min(a, b); }
inline float opSubtract(float a, float b) { return std::max(a, -b); }
inline float opIntersect(float a, float b) { return std::max(a, b); }
// Union with a fillet of radius k between the two shapes.
float smoothUnion(float a, float b, float k);

// Mirror across the vertical axis: every ship is symmetric left to right.
inline V2 mirrorX(V2 p) { return {std::fabs(p.x), p.y}; }

// Antialiased opacity of a shape at a pixel of the given size.
inline float coverage(float d, float pixel) { return clamp01(0.5f - d / pixel); }

} // namespace assetgen
