// A scripted player fights the real waves, frame by frame through GameSession::frame with the
// clock, g_rand and the input set by the test. It aims the mouse at the nearest enemy and holds
// both triggers until the whole first wave is dead, checking every kill's score and popup on
// the way; then it stops firing and lets the second wave hunt it down, through the hits, the
// sparks, the death, the wreck's wait and glide, and the respawn. Nothing is drawn; the scenes
// exist because the session builds into them.
#include "GameScenesTest.h"
#include "SessionFrame.h"
#include "hud/ScoreCounter.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/Enemy.h"
#include "play/EnemyPlasma.h"
#include "player/Player.h"
#include "player/TextIndicator.h"
#include "scene/Particle.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Text.h"
#include "scene/WorldView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr unsigned kSeed = 20110;
constexpr uint32_t kStart = 70000; // ms on the clock when the game starts
constexpr uint32_t kFrameMs = 16;
constexpr float kSync = kFrameMs * 0.001f;
constexpr float kBoltSpeed = 750.0f;    // world units per second, to lead the target
constexpr float kChaseDistance = 600.0f; // the scripted ship closes in on anything farther
constexpr float kKeyDeadZone = 150.0f;   // world units off an axis before it thrusts along it
constexpr float kPopupNear = 8.0f;       // a popup rises and its ship moved a little this frame
// The first wave's Fighters at toughness 1.1: 50 x 1.1 points, truncated.
constexpr int32_t kWaveOneValue = 55;
constexpr uint32_t kWaveOneShips = 13;
constexpr uint32_t kWaveTwoShips = 15;

// The image of p nearest to from.
vec2 nearestImage(const vec2& p, const vec2& from)
{
    vec2 images[kWrapImageCount];
    wrapImages(p, images);
    vec2 nearest = images[0];
    for (const vec2& image : images)
        if (vorlik::distance(from, image) < vorlik::distance(from, nearest)) nearest = image;
    return nearest;
}

// The distance between two points of the wrapping world, through the nearer image of b.
float wrappedDistance(const vec2& a, const vec2& b) { return vorlik::distance(a, nearestImage(b, a)); }

class CombatTest : public GameScenesTest {
protected:
    // An enemy as seen before a frame. The pointer alone cannot tell a ship from a new one
    // built at the same address in the same frame, so its spawn time goes with it.
    struct Seen {
        const Enemy* ship;
        float spawned;
        int32_t value;
        vec2 at;
    };

    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        Vorlik::currentTime = kStart;
        Vorlik::sync = kSync;
        g_rand.seed(kSeed);
        g_game = new GameSession();
        g_game->start();
        player = g_game->player;
        // The ship catches no powerup, so the score is the kills' alone.
        player->pickupRange = 0.0f;
    }

    uint32_t now() const { return Vorlik::currentTime; }

    // One frame as the main loop runs it (the snapshot and clock of endFrame, then the session),
    // with the bookkeeping of kills: every enemy that vanished was killed, the score counter
    // holds the sum of their values, and each floated its value in white where it was.
    void frame()
    {
        const std::vector<Seen> before = liveEnemies();
        playSessionFrame(*input, kFrameMs);
        ++frames;

        std::vector<TextIndicator*> popups = newPopups();
        uint32_t killed = 0;
        for (const Seen& s : before) {
            if (stillAlive(s)) continue;
            ++killed;
            scored += s.value;
            if (s.spawned < waveTwoStart) {
                ++waveOneKills;
                EXPECT_EQ(s.value, kWaveOneValue);
            }
            auto match = std::find_if(popups.begin(), popups.end(), [&](const TextIndicator* p) {
                return std::string(p->text->text.data) == std::to_string(s.value) &&
                       wrappedDistance(p->position, s.at) < kPopupNear;
            });
            EXPECT_TRUE(match != popups.end()) << "a popup of " << s.value << " where the ship died, frame " << frames;
            if (match != popups.end()) popups.erase(match);
        }
        EXPECT_TRUE(popups.empty()) << popups.size() << " popups without a kill, frame " << frames;
        ASSERT_EQ(g_game->scoreCounter->value, scored) << "frame " << frames;
        kills += killed;
    }

    std::vector<Seen> liveEnemies() const
    {
        std::vector<Seen> seen;
        for (const Enemy* e : g_game->enemies) seen.push_back(Seen{e, e->fadeStart, e->scoreValue, e->position});
        return seen;
    }
    static bool stillAlive(const Seen& s)
    {
        for (const Enemy* e : g_game->enemies)
            if (e == s.ship && e->fadeStart == s.spawned) return true;
        return false;
    }
    // The score popups born this frame: white indicators floating in the world.
    std::vector<TextIndicator*> newPopups() const
    {
        std::vector<TextIndicator*> found;
        for (Actor* actor : g_game->actors) {
            auto* t = dynamic_cast<TextIndicator*>(actor);
            if (t == nullptr || t->startTime != now() || t->text->parent != g_world) continue;
            EXPECT_EQ(t->text->color[0], 1.0f);
            EXPECT_EQ(t->text->color[1], 1.0f);
            EXPECT_EQ(t->text->color[2], 1.0f);
            found.push_back(t);
        }
        return found;
    }

    // The enemy image nearest to the ship, or null with no enemy left.
    const Enemy* nearestEnemy(vec2& image) const
    {
        const Enemy* nearest = nullptr;
        for (const Enemy* e : g_game->enemies) {
            const vec2 p = nearestImage(e->position, player->position);
            if (nearest == nullptr || vorlik::distance(p, player->position) < vorlik::distance(image, player->position)) {
                nearest = e;
                image = p;
            }
        }
        return nearest;
    }

    // The window pixel that the world camera shows point at (its rotation is 0).
    static vec2 pixelOf(const vec2& point)
    {
        const WorldView& camera = g_world->camera;
        const vec2 centre(Vorlik::getWidth() * 0.5f, Vorlik::getHeight() * 0.5f);
        return (point - vec2(camera.x, camera.y)) * camera.zoom + centre;
    }

    // Puts the mouse on the line from the ship toward point, as far along it as the window
    // allows: only the direction counts for both guns.
    void aimAt(const vec2& point)
    {
        const vec2 ship = pixelOf(player->position);
        const vec2 wanted = pixelOf(point);
        const vec2 d = wanted - ship;
        const float right = static_cast<float>(Vorlik::getWidth() - 1);
        const float bottom = static_cast<float>(Vorlik::getHeight() - 1);
        float t = 1.0f;
        if (ship.x + d.x * t > right) t = (right - ship.x) / d.x;
        if (ship.x + d.x * t < 0.0f) t = -ship.x / d.x;
        if (ship.y + d.y * t > bottom) t = (bottom - ship.y) / d.y;
        if (ship.y + d.y * t < 0.0f) t = -ship.y / d.y;
        const vec2 pixel = ship + d * t;
        input->mouseAt(static_cast<int>(std::lround(pixel.x)), static_cast<int>(std::lround(pixel.y)));
    }

    // Holds the keys that thrust toward offset on each axis where it is far enough off.
    void steer(const vec2& offset)
    {
        input->key('d', offset.x > kKeyDeadZone);
        input->key('a', offset.x < -kKeyDeadZone);
        input->key('s', offset.y > kKeyDeadZone);
        input->key('w', offset.y < -kKeyDeadZone);
    }

    // The scripted pilot's choice for the next frame: aim at the nearest enemy, leading it by
    // its flight over the time a bolt takes to get there, and close in on it when it is far.
    void pilot()
    {
        vec2 image;
        const Enemy* target = nearestEnemy(image);
        if (target == nullptr) {
            steer(vec2(0, 0));
            return;
        }
        const float distance = vorlik::distance(image, player->position);
        aimAt(image + target->velocity * (distance / kBoltSpeed));
        steer(distance > kChaseDistance ? image - player->position : vec2(0, 0));
    }

    // Whether any ship of wave 1 is still listed.
    bool waveOneLeft() const
    {
        for (const Enemy* e : g_game->enemies)
            if (e->fadeStart < waveTwoStart) return true;
        return false;
    }

    // The texts of the notices put on the HUD this frame.
    std::vector<std::string> hudNoticesBornNow() const
    {
        std::vector<std::string> texts;
        for (Actor* actor : g_game->actors) {
            const auto* t = dynamic_cast<const TextIndicator*>(actor);
            if (t != nullptr && t->startTime == now() && t->text->parent == g_hud) texts.emplace_back(t->text->text.data);
        }
        return texts;
    }

    // Every slot of every enemy gun that holds a bolt that this frame will move.
    std::vector<std::pair<const EnemyPlasma*, uint32_t>> flyingEnemyBolts() const
    {
        std::vector<std::pair<const EnemyPlasma*, uint32_t>> flying;
        const uint32_t next = now() + kFrameMs;
        for (const Enemy* e : g_game->enemies)
            for (uint32_t i = 0; i < e->gun->shots.count; ++i)
                if (e->gun->shots[i].dies > next) flying.emplace_back(e->gun, i);
        return flying;
    }
    // How many of those bolts hit something in the frame just run: a hit frees the slot.
    static uint32_t boltsThatHit(const std::vector<std::pair<const EnemyPlasma*, uint32_t>>& flying)
    {
        uint32_t hits = 0;
        for (const auto& bolt : flying) {
            const auto& slot = bolt.first->shots[bolt.second];
            hits += slot.born == 0 && slot.dies == 0 ? 1 : 0;
        }
        return hits;
    }
    // Whether slice is one of an enemy gun's spark slices.
    static bool isEnemySparkSlice(const Drawable* node)
    {
        for (const Enemy* e : g_game->enemies)
            for (const ParticleSlice* s : e->gun->sparks)
                if (s == node) return true;
        return false;
    }
    static bool isFriend(const Friend* f)
    {
        return std::find(g_game->friends.begin(), g_game->friends.end(), f) != g_game->friends.end();
    }

    Player* player = nullptr;
    int frames = 0;
    int32_t scored = 0;           // the values of every ship killed so far
    uint32_t kills = 0;
    uint32_t waveOneKills = 0;
    float waveTwoStart = 1e30f;   // ms; ships spawned before it belong to wave 1
};

TEST_F(CombatTest, AScriptedPlayerKillsTheFirstWaveThenTheSecondWaveShootsItDownAndItComesBack)
{
    // --- The first wave: 13 Fighters of 33 hit points, each worth 55. ---
    for (int i = 0; i < 400 && g_game->wave == 0; ++i) frame();
    ASSERT_EQ(g_game->wave, 1);
    ASSERT_EQ(g_game->enemies.count, kWaveOneShips);
    for (const Enemy* e : g_game->enemies) {
        EXPECT_EQ(e->scoreValue, kWaveOneValue);
        EXPECT_FLOAT_EQ(e->hitPoints, 30.0f * 1.1f);
    }

    // Aim at the nearest enemy with both triggers held until the wave is dead. The ship may
    // be shot down meanwhile; it comes back and fights on.
    input->button(1, true);
    input->button(3, true);
    constexpr int kWaveOneFrameCap = 75000 / kFrameMs; // 75 simulated seconds
    for (int i = 0; i < kWaveOneFrameCap && g_game->wave == 1; ++i) {
        pilot();
        frame();
        // The last kill starts the next wave in that same frame; only a ship that is down
        // at that moment puts it off until it is back.
        if (waveOneKills == kWaveOneShips && g_game->wave == 1) {
            ASSERT_LE(player->hull, 0.0f) << "the wave is dead and the ship alive, but no wave started";
        }
        if (g_game->wave == 2) {
            waveTwoStart = static_cast<float>(now());
            EXPECT_FLOAT_EQ(g_game->nextWaveTime, static_cast<float>(now()) + 90010.0f);
        }
    }
    ASSERT_EQ(g_game->wave, 2) << "the first wave was not killed within " << kWaveOneFrameCap * kFrameMs
                               << " ms; kills " << kills << ", enemies left " << g_game->enemies.count;
    EXPECT_EQ(waveOneKills, kWaveOneShips);
    EXPECT_EQ(g_game->scoreCounter->value, static_cast<int>(kWaveOneShips) * kWaveOneValue);
    EXPECT_FALSE(waveOneLeft());
    ASSERT_EQ(g_game->enemies.count, kWaveTwoShips);
    ASSERT_TRUE(g_game->playing);

    // --- The second wave hunts the ship, which no longer fires or flies. ---
    input->button(1, false);
    input->button(3, false);
    steer(vec2(0, 0));
    const int32_t livesBeforeDeath = g_game->lives;
    constexpr int kHuntFrameCap = 60000 / kFrameMs;
    int singleHits = 0, sparkChecks = 0;
    bool died = false;
    for (int i = 0; i < kHuntFrameCap && !died; ++i) {
        const auto flying = flyingEnemyBolts();
        const float hullBefore = player->hull;
        const float speedBefore = player->velocity.length();
        const bool touchable = player->hull > 0.0f && player->fadeEnd <= static_cast<float>(now() + kFrameMs);
        frame();
        const uint32_t hits = boltsThatHit(flying);
        died = player->hull <= 0.0f;
        if (hits == 0 || !touchable) continue;
        if (died) break;
        // Each bolt takes 2 to 7 from the hull.
        const float lost = hullBefore - player->hull;
        EXPECT_GE(lost, 2.0f * hits) << "frame " << frames;
        EXPECT_LT(lost, 7.0f * hits) << "frame " << frames;
        singleHits += hits == 1 ? 1 : 0;
        // The sparks of the last bolt to hit are in its gun's slice, just above the ship: 52 of
        // them, born now, the slice's newest.
        const auto* sparks = dynamic_cast<const ParticleSlice*>(player->drawable->next);
        ASSERT_NE(sparks, nullptr) << "frame " << frames;
        EXPECT_TRUE(isEnemySparkSlice(sparks));
        EXPECT_EQ(sparks->system, g_game->sparkParticles);
        uint32_t newborn = 0;
        for (const Particle* p = sparks->last; p != nullptr && p->birth == now(); p = p->prev) ++newborn;
        EXPECT_EQ(newborn, 52u) << "frame " << frames;
        // They start on the ship's edge, where the bolt entered its circle, give or take their
        // scatter of 1 and the ship's own step this frame.
        const float fromCentre = wrappedDistance(sparks->last->start, player->position);
        EXPECT_NEAR(fromCentre, player->radius, 1.5f + speedBefore * kSync) << "frame " << frames;
        ++sparkChecks;
    }
    ASSERT_TRUE(died) << "the second wave did not shoot the ship down within " << kHuntFrameCap * kFrameMs << " ms";
    EXPECT_GT(singleHits, 0);
    EXPECT_GT(sparkChecks, 0);

    // --- Down: out of the friends, the wreck waits 2.5 s, glides, and comes back. ---
    EXPECT_FALSE(isFriend(player));
    const float deathAt = static_cast<float>(now());
    EXPECT_FLOAT_EQ(player->deathTime, deathAt + 2500.0f);
    EXPECT_FLOAT_EQ(player->returnTime, deathAt + 6000.0f);
    const vec2 wreck = player->position;
    while (static_cast<float>(now() + kFrameMs) < player->deathTime) {
        frame();
        ASSERT_EQ(player->position, wreck) << "the wreck waits where it died";
        ASSERT_FALSE(isFriend(player));
    }
    int gliding = 0;
    while (static_cast<float>(now() + kFrameMs) < player->returnTime) {
        frame();
        const float t = (static_cast<float>(now()) - player->deathTime) / (player->returnTime - player->deathTime);
        const vec2 eased(vorlik::smoothLerp(t, wreck.x, player->respawnPosition.x),
                         vorlik::smoothLerp(t, wreck.y, player->respawnPosition.y));
        ASSERT_LT(wrappedDistance(player->position, eased), 0.5f) << "gliding eased toward the respawn point";
        ++gliding;
    }
    EXPECT_GT(gliding, 200);
    frame();
    EXPECT_EQ(g_game->lives, livesBeforeDeath - 1);
    EXPECT_EQ(hudNoticesBornNow(), std::vector<std::string>{std::to_string(livesBeforeDeath - 1) + " lives left"});
    EXPECT_EQ(player->hull, 125.0f);
    EXPECT_TRUE(isFriend(player));
    EXPECT_LT(wrappedDistance(player->position, player->respawnPosition), 0.5f);
    EXPECT_TRUE(g_game->playing);
}

} // namespace
