#include "play/Enemy.h"

#include "EnemyFixture.h"
#include "core/Random.h"
#include "hud/ScoreCounter.h"
#include "play/EnemyPlasma.h"
#include "play/WorldGeometry.h"
#include "player/Powerup.h"
#include "player/TextIndicator.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Text.h"

#include <array>
#include <cmath>
#include <cstring>

using vorlik::vec2;

namespace {

// The newest actor, if it is a text indicator.
TextIndicator* newestIndicator()
{
    if (g_game->actors.count == 0) return nullptr;
    return dynamic_cast<TextIndicator*>(g_game->actors[g_game->actors.count - 1]);
}

// The five points safeSpot tries with g_rand at the fixture's seed: x, then y, for each.
std::array<vec2, 5> safeSpotTries()
{
    vorlik::Random replay(EnemyTest::kSeed);
    std::array<vec2, 5> tries;
    for (vec2& t : tries) {
        const float x = replay.range(0.0f, kWorldWidth);
        t = vec2(x, replay.range(0.0f, kWorldHeight));
    }
    return tries;
}

} // namespace

TEST(EnemyRulesTest, FarFromItsTargetAShipThrustsStraightAtItAtThreeTimesItsTopSpeed)
{
    const vec2 a = Enemy::thrust(vec2(1000, 1000), vec2(1700, 1000), 160.0f, 800.0f);
    EXPECT_FLOAT_EQ(a.x, 480.0f);
    EXPECT_FLOAT_EQ(a.y, 0.0f);
    // At exactly half the fire range it still flies straight at it.
    const vec2 edge = Enemy::thrust(vec2(0, 0), vec2(0, 400), 100.0f, 800.0f);
    EXPECT_FLOAT_EQ(edge.y, 300.0f);
}

TEST(EnemyRulesTest, WithinHalfTheFireRangeAShipCirclesWithHalfItsThrustTurnedClockwise)
{
    for (float d : {399.0f, 350.0f, 300.0f, 200.0f}) {
        // Straight at the target would be (0, 480): turned a quarter clockwise and halved, (240, 0).
        const vec2 a = Enemy::thrust(vec2(500, 500), vec2(500, 500 + d), 160.0f, 800.0f);
        EXPECT_FLOAT_EQ(a.x, 240.0f) << d;
        EXPECT_NEAR(a.y, 0.0f, 1e-4f) << d;
    }
}

TEST(EnemyRulesTest, WithinAQuarterOfTheFireRangeAShipStopsThrustingAndDrifts)
{
    for (float d : {199.0f, 150.0f, 1.0f, 0.0f}) {
        const vec2 a = Enemy::thrust(vec2(500, 500), vec2(500 + d, 500), 160.0f, 800.0f);
        EXPECT_EQ(a, vec2(0, 0)) << d;
    }
}

TEST(EnemyRulesTest, TheSpeedLimitIsABoxSoDiagonalFlightIsFaster)
{
    EXPECT_EQ(Enemy::speedBox(vec2(500, -500), 160.0f), vec2(160, -160));
    EXPECT_EQ(Enemy::speedBox(vec2(100, -170), 160.0f), vec2(100, -160));
    EXPECT_NEAR(Enemy::speedBox(vec2(1000, 1000), 160.0f).length(), 160.0f * std::sqrt(2.0f), 1e-3f);
}

TEST_F(EnemyTest, AShipSevenHundredUnitsFromAFriendFiresAtOnceAndThenOncePerGunPeriod)
{
    friendAt(vec2(1700, 1000));
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    std::vector<float> shots;
    for (int frame = 0; frame < 400; ++frame) {
        const float before = ship->gun->lastShot;
        ship->update();
        if (ship->gun->lastShot != before) shots.push_back(ship->gun->lastShot);
        advance(kFrame);
    }
    // The first bolt leaves in the first frame; then one each 1428.6 ms, which 10 ms frames
    // round up to 1430.
    ASSERT_EQ(shots.size(), 3u);
    EXPECT_FLOAT_EQ(shots[0], kStart);
    EXPECT_FLOAT_EQ(shots[1] - shots[0], 1430.0f);
    EXPECT_FLOAT_EQ(shots[2] - shots[1], 1430.0f);
}

TEST_F(EnemyTest, AtSevenHundredUnitsAShipClosesInThenCirclesAndFinallyDrifts)
{
    Friend* prey = friendAt(vec2(1700, 1000));
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->update();
    // Straight at the friend: all the thrust along +x.
    EXPECT_GT(ship->velocity.x, 0.0f);
    EXPECT_FLOAT_EQ(ship->velocity.y, 0.0f);

    // Put it 350 units away, at rest: it thrusts sideways (a quarter turn clockwise of +x is
    // -y in the world's coordinates) and not toward the friend.
    ship->position = prey->position - vec2(350, 0);
    ship->velocity = vec2(0, 0);
    ship->update();
    EXPECT_FLOAT_EQ(ship->velocity.x, 0.0f);
    EXPECT_FLOAT_EQ(ship->velocity.y, -240.0f * 0.01f);
    EXPECT_EQ(ship->target, prey->position);

    // At 150 units it keeps its momentum and adds none.
    ship->position = prey->position - vec2(150, 0);
    ship->velocity = vec2(30, 40);
    ship->update();
    EXPECT_EQ(ship->velocity, vec2(30, 40));
}

TEST_F(EnemyTest, AShipNearTheRightEdgeHuntsAFriendNearTheLeftEdgeAcrossTheSeam)
{
    friendAt(vec2(200, 2000));
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(3700, 2000));
    ship->update();
    // The friend's image one world to the right, (4296, 2000), is 596 away; the friend itself
    // is 3500 away, out of sight.
    EXPECT_EQ(ship->target, vec2(200 + kWorldWidth, 2000));
    EXPECT_GT(ship->velocity.x, 0.0f);
    bool crossed = false;
    for (int frame = 0; frame < 500 && !crossed; ++frame) {
        advance(kFrame);
        ship->update();
        crossed = ship->position.x < 1000.0f;
    }
    EXPECT_TRUE(crossed) << "the ship flew over the right edge and came in from the left";
}

TEST_F(EnemyTest, TheLastImageInSightWinsWhenNoneIsInFiringRange)
{
    // Out of firing range, but in sight, through the images (x, y) and (x, y + H): the later
    // image in the fixed order wins.
    friendAt(vec2(2000, 300));
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(2000, 2200));
    ship->update();
    EXPECT_EQ(ship->target, vec2(2000, 300 + kWorldHeight));
    EXPECT_EQ(ship->gun->lastShot, 0.0f) << "nobody in firing range";
}

TEST_F(EnemyTest, WithNoFriendAShipWandersToANewWaypointOnceItReachesTheOldOne)
{
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->target = vec2(1010, 1000); // within the radius of 32
    ship->update();
    EXPECT_NE(ship->target, vec2(1010, 1000));
    EXPECT_GE(ship->target.x, 0.0f);
    EXPECT_LT(ship->target.x, kWorldWidth);
    EXPECT_EQ(ship->gun->lastShot, 0.0f) << "never fires without a friend";
}

TEST_F(EnemyTest, ANewShipFadesInAndGrowsOverThreeQuartersOfASecondAndThenStaysWhole)
{
    EnemyShip* ship = makeEnemy(ENEMY_FIGHTER);
    g_game->enemies.push(ship);
    g_game->actors.push(ship);
    EXPECT_EQ(ship->drawable->color.a, 0);
    EXPECT_EQ(ship->drawable->scale, 0.0f);
    EXPECT_TRUE(ship->drawable->isVisible());
    EXPECT_FLOAT_EQ(ship->fadeEnd - ship->fadeStart, 750.0f);

    advance(375);
    ship->update();
    EXPECT_EQ(ship->drawable->color.a, 127);
    EXPECT_FLOAT_EQ(ship->scale, 0.5f);
    EXPECT_FLOAT_EQ(ship->drawable->scale, 0.5f);

    advance(375); // now == fadeEnd: the fade is over
    ship->update();
    EXPECT_EQ(ship->drawable->color.a, 255);
    EXPECT_FLOAT_EQ(ship->drawable->scale, 1.0f);
    EXPECT_EQ(ship->fadeEnd, 0.0f);

    advance(kFrame);
    ship->update();
    EXPECT_FLOAT_EQ(ship->drawable->scale, 1.0f) << "stays whole after the fade";
}

TEST_F(EnemyTest, AFadingShipAlreadyMovesAndShoots)
{
    friendAt(vec2(1500, 1000));
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->fadeStart = now();
    ship->fadeEnd = now() + 750.0f;
    advance(kFrame);
    ship->update();
    EXPECT_LT(ship->drawable->color.a, 255);
    EXPECT_GT(ship->position.x, 1000.0f);
    EXPECT_FLOAT_EQ(ship->gun->lastShot, now());
}

TEST_F(EnemyTest, ANewShipIsPlacedWithItsGunAndGivenARandomWaypoint)
{
    vorlik::Random replay(kSeed);
    EnemyShip* ship = makeEnemy(ENEMY_FIGHTER);
    g_game->enemies.push(ship);
    g_game->actors.push(ship);
    // No friend: the first try is kept.
    const float x = replay.range(0.0f, kWorldWidth);
    const float y = replay.range(0.0f, kWorldHeight);
    EXPECT_EQ(ship->position, vec2(x, y));
    EXPECT_EQ(ship->gun->position, vorlik::vec3(x, y, 0.0f));
    const float tx = replay.range(0.0f, kWorldWidth);
    const float ty = replay.range(0.0f, kWorldHeight);
    EXPECT_EQ(ship->target, vec2(tx, ty));
    EXPECT_EQ(ship->velocity, vec2(0, 0));
}

TEST_F(EnemyTest, ANewShipWhoseFirstTryLandsFiveHundredFromTheShipIsPlacedAtItsFifthTry)
{
    const std::array<vec2, 5> tries = safeSpotTries();
    friendAt(tries[0] + vec2(300, 400)); // 500 from the first try
    EXPECT_EQ(Enemy::safeSpot(g_game->friends), tries[4]);
}

TEST_F(EnemyTest, ANewShipFarFromEveryFriendKeepsItsFirstTry)
{
    const vec2 first = safeSpotTries()[0];
    // 2000 away along x, in plain (not wrapped) distance.
    friendAt(first + vec2(first.x < 2048.0f ? 2000.0f : -2000.0f, 0.0f));
    EXPECT_EQ(Enemy::safeSpot(g_game->friends), first);
}

TEST_F(EnemyTest, TheSafeSpotMeasuresPlainDistancesNotDistancesThroughTheSeam)
{
    const vec2 first = safeSpotTries()[0];
    // 3500 away in plain distance, but only 596 through the seam.
    friendAt(vec2(first.x < 2048.0f ? first.x + 3500.0f : first.x - 3500.0f, first.y));
    EXPECT_EQ(Enemy::safeSpot(g_game->friends), first);
}

TEST_F(EnemyTest, TheSafeSpotTakesTheNearestOfAllFriends)
{
    const std::array<vec2, 5> tries = safeSpotTries();
    friendAt(tries[0] + vec2(tries[0].x < 2048.0f ? 2000.0f : -2000.0f, 0.0f)); // far enough
    friendAt(tries[0] + vec2(0.0f, tries[0].y < 2048.0f ? 500.0f : -500.0f));   // too near
    EXPECT_EQ(Enemy::safeSpot(g_game->friends), tries[4]);
}

TEST_F(EnemyTest, TheSafeSpotStopsAtExactly1024AndNotJustUnder)
{
    const std::array<vec2, 5> tries = safeSpotTries();
    const float side = tries[0].x < 2048.0f ? 1.0f : -1.0f;
    // The nearest friend position along x whose distance, as the code measures it, is 1024.
    Friend* f = friendAt(tries[0] + vec2(side * 1024.0f, 0.0f));
    while (vorlik::distance(tries[0], f->position) < 1024.0f)
        f->position.x = std::nextafter(f->position.x, side * 1e9f);
    EXPECT_EQ(Enemy::safeSpot(g_game->friends), tries[0]);
    f->position = tries[0] + vec2(side * 1023.5f, 0.0f);
    g_rand.seed(kSeed);
    EXPECT_EQ(Enemy::safeSpot(g_game->friends), tries[4]);
}

TEST_F(EnemyTest, ALaterFriendInSightTakesOverTheTargetWhenNoneIsInFiringRange)
{
    friendAt(vec2(1000, 2000));          // 1000 away: in sight (3000), out of firing range (800)
    Friend* later = friendAt(vec2(1000, 200)); // 800 away the other way, also out of range
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->update();
    EXPECT_EQ(ship->target, later->position);
    EXPECT_EQ(ship->gun->lastShot, 0.0f);
}

TEST_F(EnemyTest, TheFirstFriendInFiringRangeIsShotAndTheScanEndsThere)
{
    Friend* first = friendAt(vec2(1500, 1000));   // 500 away: in firing range
    friendAt(vec2(1000, 1600));                   // in range too, but listed later
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->update();
    EXPECT_EQ(ship->target, first->position);
    EXPECT_EQ(ship->gun->lastShot, static_cast<float>(kStart));
}

TEST_F(EnemyTest, AShipThatFiredKeepsItsFriendAsTargetEvenWithinItsOwnRadius)
{
    Friend* prey = friendAt(vec2(1010, 1000)); // inside the fighter's radius
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->update();
    EXPECT_EQ(ship->target, prey->position) << "no new waypoint in a frame that fired";
}

TEST_F(EnemyTest, ABoltLeavesTowardTheTargetAndFliesOnWithTheGun)
{
    friendAt(vec2(1500, 1300));
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->update();
    const auto& bolt = ship->gun->shots[ship->gun->ringIndex];
    ASSERT_GT(bolt.dies, kStart);
    const vec2 along = vec2(500, 300).normalized();
    EXPECT_NEAR(bolt.velocity.x, along.x * ship->gun->speed, 1e-3);
    EXPECT_NEAR(bolt.velocity.y, along.y * ship->gun->speed, 1e-3);
    const vec2 launched = bolt.position;
    advance(kFrame);
    ship->update();
    EXPECT_NEAR(bolt.position.x, launched.x + bolt.velocity.x * 0.01f, 1e-3) << "the ship's update moves its bolts";
    EXPECT_NEAR(bolt.position.y, launched.y + bolt.velocity.y * 0.01f, 1e-3);
}

TEST_F(EnemyTest, TheGunFollowsTheShipUnwrappedWhileTheShipWrapsOverTheEdge)
{
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(4095.9f, 1000));
    ship->target = vec2(6000, 1000);
    ship->velocity = vec2(ship->topSpeed, 0);
    ship->update();
    const float moved = 4095.9f + ship->velocity.x * 0.01f;
    EXPECT_NEAR(ship->gun->position.x, moved, 1e-3) << "placed before the wrap";
    EXPECT_NEAR(ship->position.x, moved - kWorldWidth, 1e-3);
    EXPECT_EQ(ship->gun->position.z, 0.0f);
}

TEST_F(EnemyTest, ABareEnemyStartsWithTheBaseNumbersAndARespawnGivesIt25HitPointsAnd100Points)
{
    Enemy ship;
    EXPECT_EQ(ship.radius, 100.0f);
    EXPECT_EQ(ship.topSpeed, 50.0f);
    EXPECT_EQ(ship.hitPoints, 0.0f);
    EXPECT_EQ(ship.scoreValue, 100);
    EXPECT_EQ(ship.sightRange, 800.0f);
    EXPECT_EQ(ship.fireRange, 800.0f);
    EXPECT_EQ(ship.acceleration, 1.0f);
    EXPECT_EQ(ship.dropChance, 0.0f);
    EXPECT_EQ(ship.target, vec2(0, 0));
    EXPECT_EQ(ship.velocity, vec2(0, 0));
    ship.scoreValue = 7;
    ship.respawn();
    EXPECT_EQ(ship.hitPoints, 25.0f);
    EXPECT_EQ(ship.scoreValue, 100);
}

TEST_F(EnemyTest, AHitThatTakesHitPointsExactlyToZeroKills)
{
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1000, 1000));
    ship->hitPoints = 10.0f;
    EXPECT_TRUE(ship->damage(4.0f));
    EXPECT_TRUE(listed(ship));
    EXPECT_FALSE(ship->damage(6.0f));
    EXPECT_FALSE(listed(ship));
}

TEST_F(EnemyTest, TheScorePopupShowsTheFullValueThatGrowsWithTheWaveWhereTheShipWas)
{
    g_game->toughness = static_cast<float>(std::pow(1.1, 5)); // wave 5
    EnemyShip* ship = shipAt(ENEMY_HAMMERHEAD, vec2(1234, 567));
    const int32_t value = ship->scoreValue;
    EXPECT_EQ(value, static_cast<int32_t>(350.0f * g_game->toughness)); // 563
    EXPECT_FALSE(ship->damage(10000.0f));

    TextIndicator* popup = newestIndicator();
    ASSERT_NE(popup, nullptr);
    EXPECT_STREQ(popup->text->text.data, "563");
    EXPECT_EQ(popup->position, vec2(1234, 567));
    EXPECT_EQ(popup->scale, 1.0f);
}

TEST_F(EnemyTest, AnExplosionBurstsIntoTheExplosionSliceAndTheShipLeavesItsLists)
{
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(800, 900));
    ship->dropChance = 0.0f;
    const uint32_t actorsBefore = g_game->actors.count;
    ship->explode();
    EXPECT_EQ(g_game->explosionSlice->count, 192u);
    EXPECT_EQ(g_game->enemies.count, 0u);
    EXPECT_EQ(g_game->actors.count, actorsBefore - 1) << "no popup from explode itself";
    EXPECT_EQ(world.first, nullptr) << "the ship's group left the scene";
}
