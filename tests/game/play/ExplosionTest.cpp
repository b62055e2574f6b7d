// A ship's explosion burst: its particles' lives, colours and sizes, where they start, and the
// random draws it takes from g_rand, in their order.
#include "play/Explosion.h"

#include "EnemyFixture.h"
#include "core/Random.h"
#include "scene/ParticleSlice.h"

#include <algorithm>
#include <cmath>

using vorlik::vec2;

namespace {

constexpr unsigned kBurstSeed = 77;

// Every particle of the session's explosion slice.
std::vector<Particle> explosionParticles()
{
    std::vector<Particle> out;
    for (const Particle* p = g_game->explosionSlice->first; p != nullptr; p = p->next) out.push_back(*p);
    return out;
}

bool between(float v, float a, float b) { return v >= std::min(a, b) - 1e-6f && v <= std::max(a, b) + 1e-6f; }

} // namespace

TEST_F(EnemyTest, AnEnemyExplodesIn192FieryParticlesLivingFromTheFirstToTheSecondDrawnTime)
{
    EnemyShip* ship = shipAt(ENEMY_HAMMERHEAD, vec2(1500, 1600)); // radius 50
    const float r = ship->radius;
    ship->dropChance = 0.0f; // the drop's draw is still made, but no token draws after it
    g_rand.seed(kBurstSeed);
    vorlik::Random replay(kBurstSeed);
    replay.range(9.0f * r, 12.0f * r); // the speed comes first, then the second time, then the first
    const int32_t second = replay.range(1000, 1199);
    const int32_t first = replay.range(500, 599);
    replay.range(0.0f, 1.0f); // the drop's draw
    const float nextDraw = replay.range(0.0f, 1.0f);

    ship->explode();
    EXPECT_FLOAT_EQ(g_rand.range(0.0f, 1.0f), nextDraw) << "speed, two times and the drop: four draws";

    const std::vector<Particle> burst = explosionParticles();
    ASSERT_EQ(burst.size(), 192u);
    uint32_t shortest = UINT32_MAX, longest = 0;
    for (const Particle& p : burst) {
        const uint32_t life = p.death - p.birth;
        shortest = std::min(shortest, life);
        longest = std::max(longest, life);
        EXPECT_TRUE(between(p.color.x, 0.6f, 0.9f) && between(p.color.y, 0.2f, 0.3f) &&
                    between(p.color.z, 0.05f, 0.1f) && p.color.w == 1.0f);
        EXPECT_TRUE(between(p.sizeStart, 26.0f, 40.0f)) << p.sizeStart;
        EXPECT_TRUE(between(p.sizeEnd, 0.0f, 8.0f)) << p.sizeEnd;
        EXPECT_LE(vorlik::distance(p.start, vec2(1500, 1600)), r + 1e-3f)
            << "scattered within the ship's radius";
    }
    EXPECT_GE(shortest, static_cast<uint32_t>(first));
    EXPECT_LT(longest, static_cast<uint32_t>(second));
    EXPECT_LT(shortest, static_cast<uint32_t>(first) + 30u) << "lives spread over the whole range";
    EXPECT_GT(longest + 30u, static_cast<uint32_t>(second));
}
