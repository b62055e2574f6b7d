#include "play/EnemyTypes.h"

#include "EnemyFixture.h"
#include "base/Resources.h"
#include "scene/Sprite.h"

#include <cmath>
#include <memory>

using vorlik::vec2;

namespace {

struct Expected {
    vorlik::Texture* const* body;
    vorlik::Texture* const* glow;
    float size, radius, speed, hitPoints, score, drop;
};

// By EnemyKind.
const Expected kExpected[ENEMY_KIND_COUNT] = {
    {&Resources::enemy_fighter_tex, &Resources::enemy_fighter_glow_tex, 96, 32, 160, 30, 50, 0.4f},
    {&Resources::enemy_fighter2_tex, &Resources::enemy_fighter2_glow_tex, 136, 50, 120, 65, 125, 0.55f},
    {&Resources::enemy_hammerhead_tex, &Resources::enemy_hammerhead_glow_tex, 136, 50, 95, 95, 350, 0.7f},
    {&Resources::enemy_probe_tex, &Resources::enemy_probe_glow_tex, 82, 32, 195, 15, 100, 0.1f},
    {&Resources::enemy_probe_tex, &Resources::enemy_probe_glow_tex, 96, 42, 235, 25, 175, 0.15f},
    {&Resources::enemy_hammerhead2_tex, &Resources::enemy_hammerhead2_glow_tex, 172, 80, 65, 165, 750, 0.9f},
    {&Resources::enemy_probe3_tex, &Resources::enemy_probe3_glow_tex, 116, 42, 265, 35, 225, 0.2f},
};

} // namespace

TEST(EnemyTypesTableTest, EveryTypeHasItsPicturesSizeRadiusSpeedPointsAndDropChance)
{
    for (uint32_t k = 0; k < ENEMY_KIND_COUNT; ++k) {
        const EnemyType& t = kEnemyTypes[k];
        const Expected& e = kExpected[k];
        EXPECT_EQ(t.body, e.body) << k;
        EXPECT_EQ(t.glow, e.glow) << k;
        EXPECT_EQ(t.spriteSize, e.size) << k;
        EXPECT_EQ(t.radius, e.radius) << k;
        EXPECT_EQ(t.topSpeed, e.speed) << k;
        EXPECT_EQ(t.hitPoints, e.hitPoints) << k;
        EXPECT_EQ(t.scoreValue, e.score) << k;
        EXPECT_FLOAT_EQ(t.dropChance, e.drop) << k;
    }
}

TEST(EnemyTypesTableTest, AShipFacesItsDirectionOfFlightThroughTheEngineAngle)
{
    // The engine's angle plus 90, wrapped: flying right shows 90, left 270; the angle's
    // y-up convention gives 0 for flying down the screen and 180 for flying up.
    const vec2 at(100, 100);
    EXPECT_FLOAT_EQ(EnemyShip::facing(at, vec2(10, 0)), 90.0f);
    EXPECT_FLOAT_EQ(EnemyShip::facing(at, vec2(-10, 0)), 270.0f);
    EXPECT_NEAR(EnemyShip::facing(at, vec2(0, 10)), 0.0f, 1e-3f);
    EXPECT_FLOAT_EQ(EnemyShip::facing(at, vec2(0, -10)), 180.0f);
    EXPECT_FLOAT_EQ(EnemyShip::facing(at, vec2(0, 0)), 90.0f) << "at rest: the angle of a zero vector";
}

TEST_F(EnemyTest, EachOfTheSevenClassesIsItsRowOfTheTable)
{
    std::unique_ptr<EnemyShip> ships[] = {
        std::make_unique<Fighter>(), std::make_unique<Fighter2>(), std::make_unique<Hammerhead>(),
        std::make_unique<Probe>(),   std::make_unique<Probe2>(),   std::make_unique<Hammerhead2>(),
        std::make_unique<Probe3>(),
    };
    for (uint32_t k = 0; k < ENEMY_KIND_COUNT; ++k) {
        EnemyShip& ship = *ships[k];
        EXPECT_EQ(&ship.type, &kEnemyTypes[k]) << k;
        EXPECT_EQ(ship.radius, kExpected[k].radius) << k;
        EXPECT_EQ(ship.topSpeed, kExpected[k].speed) << k;
        EXPECT_EQ(ship.sightRange, 3000.0f) << k;
        EXPECT_EQ(ship.fireRange, 800.0f) << k;
        EXPECT_FLOAT_EQ(ship.dropChance, kExpected[k].drop) << k;
        EXPECT_EQ(ship.body->size.x, kExpected[k].size) << k;
        EXPECT_EQ(ship.glow->size.y, kExpected[k].size) << k;
    }
}

TEST_F(EnemyTest, HitPointsAndScoreGrowWithToughnessAndTheScoreIsTruncated)
{
    g_game->toughness = 1.1f; // wave 1
    Fighter fighter;
    EXPECT_FLOAT_EQ(fighter.hitPoints, 33.0f);
    EXPECT_EQ(fighter.scoreValue, 55);
}

TEST_F(EnemyTest, AtWaveTenAHammerheadHasAbout246HitPointsAndIsWorth907)
{
    g_game->toughness = static_cast<float>(std::pow(1.1, 10)); // about 2.594
    Hammerhead hammerhead;
    EXPECT_NEAR(hammerhead.hitPoints, 246.4f, 0.05f);
    EXPECT_EQ(hammerhead.scoreValue, 907); // 907.8 truncated
}

TEST_F(EnemyTest, AProbe2WearsTheProbePicturesLargerWithAWiderRadius)
{
    Probe probe;
    Probe2 probe2;
    EXPECT_EQ(probe2.body->texture, probe.body->texture);
    EXPECT_EQ(probe2.glow->texture, probe.glow->texture);
    EXPECT_EQ(probe.body->size.x, 82.0f);
    EXPECT_EQ(probe2.body->size.x, 96.0f);
    EXPECT_EQ(probe.radius, 32.0f);
    EXPECT_EQ(probe2.radius, 42.0f);
    EXPECT_NE(probe2.topSpeed, probe.topSpeed);
}

TEST_F(EnemyTest, AShipIsItsBodyWithTheGlowDrawnAdditivelyOverIt)
{
    Fighter fighter;
    EXPECT_EQ(fighter.drawable, fighter.group);
    EXPECT_EQ(fighter.group->first, fighter.body);
    EXPECT_EQ(fighter.group->last, fighter.glow);
    EXPECT_EQ(fighter.glow->blendMode(), static_cast<uint32_t>(BLEND_ADDITIVE));
    EXPECT_EQ(fighter.body->blendMode(), static_cast<uint32_t>(BLEND_NORMAL));
}

TEST_F(EnemyTest, AFlyingShipTurnsItsGroupToFaceItsFlight)
{
    EnemyShip* ship = shipAt(ENEMY_PROBE, vec2(1000, 1000));
    ship->target = vec2(3000, 1000);
    ship->update();
    EXPECT_FLOAT_EQ(ship->group->rotation, 90.0f);
    EXPECT_EQ(ship->rotation, 0.0f) << "only the picture turns";
}
