// A started game held in one state from frame to frame, for the benchmarks of the session's
// frame and of the drawn game frame: before any wave, or brought to a chosen wave with the
// ships of two earlier waves left over, every ship crowding round the player's ship within
// firing range and the explosion particles at capacity; in every case 64 of the ship's bolts
// and 3 of its beams in the air. keepSteady, called before each frame, undoes what a frame
// changes that would drift the measurement (see there). Needs the game's window (GameScenes.h).
#pragma once

#include "GameScenes.h"
#include "base/GameRandom.h"
#include "math/scalar.h"
#include "platform/EventState.h"
#include "platform/Vorlik.h"
#include "play/Enemy.h"
#include "play/EnemyPlasma.h"
#include "play/EnemyTypes.h"
#include "play/GameSession.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "player/Player.h"
#include "scene/Particle.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"

#include <cmath>
#include <cstdint>

namespace bench {

class SessionScene {
public:
    static constexpr uint32_t kFrameMs = 16;       // the clock's step per frame
    static constexpr uint32_t kStartMs = 100000;   // the clock when the session starts
    static constexpr uint32_t kBolts = 64;         // the ship's bolts kept in the air: its whole ring
    static constexpr uint32_t kBeams = 3;          // the ship's beams kept alive: as many as overlap
    static constexpr int32_t kLeftoverWaves = 2;   // waves played before the jump (28 ships stay)
    static constexpr uint32_t kSettleFrames = 200; // 3.2 s before measuring: fade-ins and notices over

    // A session started on the benchmarks' clock and generators; wave 0 leaves it before the
    // first wave, any other wave brings it there with the crowd and the explosions.
    explicit SessionScene(int32_t wave)
    {
        using vorlik::Vorlik;
        g_rand.seed(kStaticRandomSeed);
        ParticleSystem::random.seed(kStaticRandomSeed);
        Vorlik::currentTime = kStartMs;
        Vorlik::sync = kFrameMs * kSecondsPerMs;
        // The mouse rests up and to the right of the ship, with no button held: the reticle
        // shows there and the beams point there; the ship neither fires nor thrusts by itself.
        Vorlik::events->currentMouseX = kAimX;
        Vorlik::events->currentMouseY = kAimY;
        Vorlik::events->currentButtons = 0;

        g_game = new GameSession();
        g_game->start();
        if (wave > 0) {
            reachWave(wave);
            gatherTheCrowd();
            fillExplosions();
        }
        launchBolts();
        for (uint32_t i = 0; i < kSettleFrames; ++i) {
            nextFrame();
            g_game->frame();
        }
    }
    ~SessionScene()
    {
        delete g_game;
        g_game = nullptr;
    }
    SessionScene(const SessionScene&) = delete;
    SessionScene& operator=(const SessionScene&) = delete;

    // Holds the scene before the next frame, then moves the clock on by one frame:
    //  - the ship is untouchable: its hull is set far out of reach, so the enemies' bolts still
    //    hit it and spray sparks as on a live ship, but it never dies;
    //  - the ships cannot be killed: their hit points are set out of reach, so the crowd stays;
    //  - no new wave: the wave timer is pushed a whole wave ahead;
    //  - the ship's bolts that hit or ran out fly again from the ship, so all 64 are in the air;
    //  - the 3 beams are renewed at ages 0, 250 and 500 ms, as if just fired at the laser's rate;
    //  - the explosion particles keep their ages (birth and death move with the clock), so they
    //    stay at capacity and look the same from frame to frame.
    void nextFrame()
    {
        const uint32_t now = vorlik::Vorlik::currentTime;
        Player& ship = *g_game->player;
        ship.hull = kOutOfReach;
        for (Enemy* enemy : g_game->enemies) enemy->hitPoints = kOutOfReach;
        g_game->nextWaveTime = static_cast<float>(now) + GameSession::kWaveDuration;

        for (uint32_t i = 0; i < kBolts; ++i)
            if (ship.plasma->shots[i].dies <= now) launchBolt(i, 0);

        Laser& laser = *ship.laser;
        const float beamInterval = kMillisecondsPerSecond / laser.fireRate;
        for (uint32_t i = 0; i < kBeams; ++i) {
            Laser::Vertex& beam = laser.beams[i];
            for (int c = 0; c < 4; ++c) beam.colour[c] = laser.colour[c];
            beam.born = static_cast<float>(now) - beamInterval * static_cast<float>(i);
            beam.dies = beam.born + laser.lifetime;
        }

        ParticleSystem& explosions = *g_game->explosionParticles;
        for (uint32_t i = 0; i < explosions.capacity; ++i) {
            Particle& p = explosions.particles[i];
            if (p.slice == nullptr) continue;
            p.birth += kFrameMs;
            p.death += kFrameMs;
        }
        vorlik::Vorlik::currentTime = now + kFrameMs;
    }

    // Live bolts of all enemy guns together.
    static uint32_t enemyBoltsInFlight()
    {
        const uint32_t now = vorlik::Vorlik::currentTime;
        uint32_t live = 0;
        for (Enemy* enemy : g_game->enemies)
            for (const EnemyPlasma::Vertex& bolt : enemy->gun->shots) live += bolt.dies > now ? 1 : 0;
        return live;
    }

private:
    static constexpr float kSecondsPerMs = 0.001f;
    static constexpr float kMillisecondsPerSecond = 1000.0f;
    static constexpr float kOutOfReach = 1.0e9f; // hit points no frame's damage comes near
    static constexpr int kAimX = 1000;           // window pixels
    static constexpr int kAimY = 250;
    static constexpr float kCrowdNear = 250.0f;  // world units from the ship: the crowd's ring,
    static constexpr float kCrowdFar = 750.0f;   // all inside the enemies' firing range of 800
    static constexpr double kToughnessPerWave = 1.1;
    // Of each particle's life: the explosions' ages are spread from none to this much, the way
    // a steady stream of explosions leaves them.
    static constexpr float kOldestAge = 0.9f;

    // Plays kLeftoverWaves waves (their ships stay), then jumps to wave: the wave before it is
    // set with the toughness it would have reached, and the wave is started.
    static void reachWave(int32_t wave)
    {
        for (int32_t w = 0; w < kLeftoverWaves && w < wave - 1; ++w) g_game->startWave();
        g_game->wave = wave - 1;
        g_game->toughness = static_cast<float>(std::pow(kToughnessPerWave, wave - 1));
        g_game->startWave();
    }

    // A random point in the ring round the ship where the crowd stands.
    static vorlik::vec2 crowdPoint()
    {
        const float angle = g_rand.range(0.0f, 2.0f * vorlik::kPi);
        const float distance = g_rand.range(kCrowdNear, kCrowdFar);
        return wrapIntoWorld(g_game->player->position + vorlik::vec2(std::cos(angle), std::sin(angle)) * distance);
    }

    // Every ship moves into firing range of the player's ship; their guns' gates are spread
    // over one interval of the gun's rate, as ships that arrived one by one would have them,
    // instead of all firing in the same frame.
    static void gatherTheCrowd()
    {
        const float now = static_cast<float>(vorlik::Vorlik::currentTime);
        for (Enemy* enemy : g_game->enemies) {
            enemy->position = crowdPoint();
            enemy->gun->lastShot = now - g_rand.range(0.0f, kMillisecondsPerSecond / enemy->gun->fireRate);
        }
    }

    // Ships of the first type blow up in the crowd, dropping nothing, until the explosion slice
    // holds every record of its system; then the particles' ages are spread over their lives.
    static void fillExplosions()
    {
        ParticleSystem& explosions = *g_game->explosionParticles;
        while (g_game->explosionSlice->count < explosions.capacity) {
            EnemyShip* wreck = makeEnemy(ENEMY_FIGHTER);
            wreck->position = crowdPoint();
            wreck->dropChance = 0.0f;
            wreck->explode();
        }
        for (uint32_t i = 0; i < explosions.capacity; ++i) {
            Particle& p = explosions.particles[i];
            const uint32_t life = p.death - p.birth;
            const auto age = static_cast<uint32_t>(kOldestAge * static_cast<float>(life) * static_cast<float>(i) /
                                                   static_cast<float>(explosions.capacity));
            p.birth -= age;
            p.death -= age;
        }
    }

    // The ship's bolts leave in kBolts directions round it, at ages spread over a bolt's life.
    static void launchBolts()
    {
        const uint32_t lifetime = g_game->player->plasma->lifetime;
        for (uint32_t i = 0; i < kBolts; ++i) launchBolt(i, lifetime * i / kBolts);
    }

    // Bolt slot i flying from the ship in its own direction, age ms old.
    static void launchBolt(uint32_t i, uint32_t age)
    {
        const Player& ship = *g_game->player;
        Plasma& gun = *ship.plasma;
        const uint32_t now = vorlik::Vorlik::currentTime;
        const float angle = 2.0f * vorlik::kPi * static_cast<float>(i) / static_cast<float>(kBolts);
        Plasma::Vertex& bolt = gun.shots[i];
        bolt.velocity = vorlik::vec2(std::cos(angle), std::sin(angle)) * gun.speed;
        bolt.position = ship.position + bolt.velocity * (static_cast<float>(age) * kSecondsPerMs);
        bolt.born = now - age;
        bolt.dies = bolt.born + gun.lifetime;
    }
};

} // namespace bench
