#include "review/SkyView.h"

#include <algorithm>
#include <cmath>
#include <thread>
#include <vector>

namespace assetgen {

namespace {

V3 rotateX(V3 v, float deg)
{
    float a = degreesToRadians(deg), c = std::cos(a), s = std::sin(a);
    return {v.x, c * v.y - s * v.z, s * v.y + c * v.z};
}

V3 rotateZ(V3 v, float deg)
{
    float a = degreesToRadians(deg), c = std::cos(a), s = std::sin(a);
    return {c * v.x - s * v.y, s * v.x + c * v.y, v.z};
}

} // namespace

void renderSky(Compositor& out, int x0, int y0, int w, int h, const Picture* const faces[6], const SkyCamera& cam,
               float brightness)
{
    V3 f = normalize(cam.forward);
    V3 r = normalize(cross(f, cam.up));
    V3 u = cross(r, f);
    float k = std::tan(degreesToRadians(cam.fovDeg) / 2);
    auto rows = [&](int from, int to) {
        for (int y = from; y < to; ++y)
            for (int x = 0; x < w; ++x) {
                float sx = (2 * (x + 0.5f) / w - 1) * k * w / h;
                float sy = (1 - 2 * (y + 0.5f) / h) * k;
                V3 world = f + r * sx + u * sy;
                // The box is drawn turned by Rz * Rx: undo that to find the direction in the box.
                V3 box = rotateX(rotateZ(world, -cam.tiltZDeg), -cam.tiltXDeg);
                CubeFace face;
                float s, t;
                faceOf(box, face, s, t);
                const Picture* pic = faces[static_cast<int>(face)];
                if (!pic || x0 + x < 0 || y0 + y < 0 || x0 + x >= out.width() || y0 + y >= out.height())
                    continue;
                // Edge texels sit exactly on the cube's edges: map [-1, 1] onto texel centres.
                float fu = ((s + 1) * 0.5f * (pic->width - 1) + 0.5f) / pic->width;
                float fv = ((t + 1) * 0.5f * (pic->height - 1) + 0.5f) / pic->height;
                Px c = sampleBilinear(*pic, fu, fv);
                out.at(x0 + x, y0 + y) = out.at(x0 + x, y0 + y) + V3{c.r, c.g, c.b} * (c.a * brightness);
            }
    };
    // Rows are independent: split them over the machine's cores.
    int workers = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
    std::vector<std::thread> pool;
    for (int i = 0; i < workers; ++i)
        pool.emplace_back(rows, h * i / workers, h * (i + 1) / workers);
    for (std::thread& t : pool)
        t.join();
}

} // namespace assetgen
