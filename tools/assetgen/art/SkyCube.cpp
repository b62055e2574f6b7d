#include "art/SkyCube.h"

#include <cmath>

namespace assetgen {

const char* faceName(CubeFace face)
{
    switch (face) {
    case CubeFace::Front: return "sky_front";
    case CubeFace::Back: return "sky_back";
    case CubeFace::Left: return "sky_left";
    case CubeFace::Right: return "sky_right";
    case CubeFace::Top: return "sky_top";
    case CubeFace::Bottom: return "sky_bottom";
    }
    return "";
}

V3 faceDirection(CubeFace face, float s, float t)
{
    switch (face) {
    case CubeFace::Front: return {s, -t, -1};
    case CubeFace::Right: return {1, -t, s};
    case CubeFace::Back: return {-s, -t, 1};
    case CubeFace::Left: return {-1, -t, -s};
    case CubeFace::Top: return {s, 1, -t};
    case CubeFace::Bottom: return {s, -1, t};
    }
    return {};
}

void faceOf(V3 d, CubeFace& face, float& s, float& t)
{
    float ax = std::fabs(d.x), ay = std::fabs(d.y), az = std::fabs(d.z);
    if (ax >= ay && ax >= az) {
        face = d.x > 0 ? CubeFace::Right : CubeFace::Left;
        s = d.x > 0 ? d.z / ax : -d.z / ax;
        t = -d.y / ax;
    } else if (ay >= az) {
        face = d.y > 0 ? CubeFace::Top : CubeFace::Bottom;
        s = d.x / ay;
        t = d.y > 0 ? -d.z / ay : d.z / ay;
    } else {
        face = d.z < 0 ? CubeFace::Front : CubeFace::Back;
        s = d.z < 0 ? d.x / az : -d.x / az;
        t = -d.y / az;
    }
}

} // namespace assetgen
