// The powerup token: how its kind is drawn, how it drifts, spins and is caught, its glide into
// the catcher, and each kind's effect and green message.
#include "player/Powerup.h"

#include "PowerupFixture.h"
#include "base/GameRandom.h"
#include "base/Resources.h"
#include "hud/ScoreCounter.h"
#include "math/scalar.h"
#include "play/ActorLists.h"
#include "player/Friend.h"
#include "scene/Sprite.h"

#include <gtest/gtest.h>
#include <cmath>
#include <cstring>
#include <memory>
#include <set>
#include <string>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

class PowerupTest : public PowerupFixture {};

constexpr int kSeeds = 100;
const vec2 kShipAt(2048, 2048);

// Runs check(seed) once with g_rand seeded by each of 1 to kSeeds.
template <typename Check> void forEachSeed(Check check)
{
    for (int s = 1; s <= kSeeds; ++s) {
        g_rand.seed(s);
        check(s);
    }
}

// --- The kind ---

TEST_F(PowerupTest, AFirstDrawOf89GivesAnUpgradeAnd90BeginsTheSpecialKinds)
{
    for (int second : {0, 50, 105}) {
        EXPECT_EQ(Powerup::kindFor(0, second), POWERUP_UPGRADE);
        EXPECT_EQ(Powerup::kindFor(89, second), POWERUP_UPGRADE);
        EXPECT_NE(Powerup::kindFor(90, second), POWERUP_UPGRADE);
        EXPECT_NE(Powerup::kindFor(99, second), POWERUP_UPGRADE);
    }
}

TEST_F(PowerupTest, SecondDrawsOf100To109GiveTheMegaNukeAnd80To99TheSpeedBoost)
{
    for (int second = 100; second <= 109; ++second) EXPECT_EQ(Powerup::kindFor(95, second), POWERUP_MEGANUKE);
    for (int second = 80; second <= 99; ++second) EXPECT_EQ(Powerup::kindFor(95, second), POWERUP_SPEED_BOOST);
}

TEST_F(PowerupTest, SecondDrawsBelow80GiveEnergyShieldExtraScoreAndHullInBandsOf30301010)
{
    for (int second = 0; second <= 29; ++second) EXPECT_EQ(Powerup::kindFor(90, second), POWERUP_ENERGY);
    for (int second = 30; second <= 59; ++second) EXPECT_EQ(Powerup::kindFor(90, second), POWERUP_SHIELD);
    for (int second = 60; second <= 69; ++second) EXPECT_EQ(Powerup::kindFor(90, second), POWERUP_EXTRA_SCORE);
    for (int second = 70; second <= 79; ++second) EXPECT_EQ(Powerup::kindFor(90, second), POWERUP_HULL);
}

TEST_F(PowerupTest, AKindTakesASecondDrawOnlyWhenTheFirstIsAbove89)
{
    int upgrades = 0, specials = 0;
    for (int s = 1; s <= 400; ++s) {
        g_rand.seed(s);
        const int32_t first = g_rand.range(0, 100);
        const int32_t second = g_rand.range(0, 110);
        g_rand.seed(s);
        const int32_t before = g_rand.intCursor;
        const int kind = Powerup::drawKind();
        const int32_t draws = g_rand.intCursor - before;
        if (first <= 89) {
            ++upgrades;
            EXPECT_EQ(kind, POWERUP_UPGRADE) << s;
            EXPECT_EQ(draws, 1) << s;
        } else {
            ++specials;
            EXPECT_EQ(kind, Powerup::kindFor(first, second)) << s;
            EXPECT_EQ(draws, 2) << s;
        }
    }
    EXPECT_GT(upgrades, 0);
    EXPECT_GT(specials, 0);
}

TEST_F(PowerupTest, ConstructionDrawsTheVelocityYThenXWithin75AndThenTheKind)
{
    for (int s = 1; s <= kSeeds; ++s) {
        g_rand.seed(s);
        const float y = g_rand.range(-75.0f, 75.0f);
        const float x = g_rand.range(-75.0f, 75.0f);
        const int kind = Powerup::drawKind();
        g_rand.seed(s);
        std::unique_ptr<Powerup> token(new Powerup());
        EXPECT_EQ(token->velocity, vec2(x, y)) << s;
        EXPECT_EQ(token->kind, kind) << s;
        EXPECT_LE(std::fabs(token->velocity.x), 75.0f);
        EXPECT_LE(std::fabs(token->velocity.y), 75.0f);
    }
}

// 90 in 100 tokens are Upgrades; the other tenth splits 30, 30, 10, 10, 20, 10 in 110. Each
// count must lie within four standard deviations of its share, which a band of the wrong width
// leaves. Kinds swapped between bands of equal width are caught by the band tests above.
TEST_F(PowerupTest, KindFrequenciesOverManyTokensFollowTheBands)
{
    constexpr int kTokens = 100000;
    const double share[POWERUP_KIND_COUNT] = {0.9, 0.1 * 30 / 110, 0.1 * 30 / 110, 0.1 * 10 / 110,
                                              0.1 * 10 / 110, 0.1 * 20 / 110, 0.1 * 10 / 110};
    int counts[POWERUP_KIND_COUNT] = {};
    g_rand.seed(12345);
    for (int i = 0; i < kTokens; ++i) {
        Powerup token;
        ASSERT_GE(token.kind, 0);
        ASSERT_LT(token.kind, POWERUP_KIND_COUNT);
        ++counts[token.kind];
    }
    for (int k = 0; k < POWERUP_KIND_COUNT; ++k) {
        const double expected = share[k] * kTokens;
        const double sigma = std::sqrt(expected * (1 - share[k]));
        EXPECT_NEAR(counts[k], expected, 4 * sigma) << "kind " << k;
    }
}

// --- The token ---

TEST_F(PowerupTest, IsASpinningAnimated48PixelSpriteUnderAnAdditiveGlowThatRegistersNowhere)
{
    const uint32_t actorsBefore = g_game->actors.count;
    const uint32_t worldBefore = g_world->count;
    std::unique_ptr<Powerup> token(new Powerup());
    EXPECT_EQ(g_game->actors.count, actorsBefore);
    EXPECT_EQ(g_game->powerups.count, 0u);
    EXPECT_EQ(g_world->count, worldBefore);

    EXPECT_EQ(token->drawable, token->group);
    ASSERT_EQ(token->group->count, 2u);
    EXPECT_EQ(token->group->first, token->sprite);
    EXPECT_EQ(token->sprite->next, token->glow);
    for (Sprite* s : {token->sprite, token->glow}) {
        EXPECT_EQ(s->size.x, 48.0f);
        EXPECT_EQ(s->size.y, 48.0f);
        EXPECT_TRUE(s->animated);
        EXPECT_EQ(s->columns, 16);
        EXPECT_EQ(s->rows, 16);
        EXPECT_EQ(s->frame, 0);
    }
    EXPECT_EQ(token->sprite->texture, Resources::powerup_anim_tex);
    EXPECT_EQ(token->glow->texture, Resources::powerup_glow_anim_tex);
    EXPECT_EQ(token->glow->blendMode(), BLEND_ADDITIVE);
    EXPECT_EQ(token->sprite->blendMode(), BLEND_NORMAL);
    EXPECT_EQ(token->scale, 1.0f);
    EXPECT_EQ(token->frame, 0.0f);
    EXPECT_EQ(token->frameRate, 25.0f);
    EXPECT_FALSE(token->collected);
    EXPECT_EQ(token->collector, nullptr);
}

TEST_F(PowerupTest, ItsAnimationAdvances25FramesASecondAndWrapsAt256)
{
    Powerup* token = drop(POWERUP_ENERGY, vec2(100, 100));
    step(token, 1000);
    EXPECT_FLOAT_EQ(token->frame, 25.0f);
    EXPECT_EQ(token->sprite->frame, 25);
    EXPECT_EQ(token->glow->frame, 25);
    token->frame = 10.9f;
    step(token, 0);
    EXPECT_EQ(token->sprite->frame, 10);
    token->frame = 255.5f;
    step(token, 40); // one frame more: 256.5 comes round to 0.5
    EXPECT_FLOAT_EQ(token->frame, 0.5f);
    EXPECT_EQ(token->sprite->frame, 0);
    EXPECT_EQ(token->glow->frame, 0);
}

TEST_F(PowerupTest, ItDriftsByItsVelocityAndLosesAFifthOfItPerSecond)
{
    Powerup* token = drop(POWERUP_ENERGY, vec2(1000, 1000));
    token->velocity = vec2(50, -40);
    step(token, 100);
    EXPECT_FLOAT_EQ(token->position.x, 1005);
    EXPECT_FLOAT_EQ(token->position.y, 996);
    EXPECT_FLOAT_EQ(token->velocity.x, 50 * 0.98f);
    EXPECT_FLOAT_EQ(token->velocity.y, -40 * 0.98f);
    EXPECT_EQ(token->group->position, vorlik::vec3(1005, 996, 0));
    EXPECT_FALSE(token->collected);
}

TEST_F(PowerupTest, ItWrapsIntoTheWorld)
{
    Powerup* token = drop(POWERUP_ENERGY, vec2(4090, 10));
    token->velocity = vec2(60, -60);
    step(token, 200);
    EXPECT_NEAR(token->position.x, 4090 + 12 - 4096, 1e-3);
    EXPECT_NEAR(token->position.y, 10 - 12 + 4096, 1e-3);
}

// --- Capture ---

TEST_F(PowerupTest, AFriendExactlyAtItsPickupRangeDoesNotCatchItAndOneJustInsideDoes)
{
    player->position = kShipAt;
    Powerup* token = drop(POWERUP_ENERGY, kShipAt + vec2(150, 0));
    step(token);
    EXPECT_FALSE(token->collected);
    token->position = kShipAt + vec2(0, 149.9f);
    step(token);
    EXPECT_TRUE(token->collected);
    EXPECT_EQ(token->collector, player);
    EXPECT_EQ(token->collectFrom, kShipAt + vec2(0, 149.9f));
    EXPECT_EQ(token->collectStart, static_cast<float>(Vorlik::currentTime));
    EXPECT_EQ(token->collectEnd, static_cast<float>(Vorlik::currentTime) + 500);
}

TEST_F(PowerupTest, ThePlayerCatchesFrom150AwayAndAPlainFriendFrom75)
{
    player->position = kShipAt;
    Powerup* byPlayer = drop(POWERUP_ENERGY, kShipAt + vec2(-140, 0));
    step(byPlayer);
    EXPECT_EQ(byPlayer->collector, player);

    Friend wingman;
    wingman.position = vec2(500, 500);
    g_game->friends.push(&wingman);
    Powerup* tooFar = drop(POWERUP_ENERGY, vec2(500, 580));
    Powerup* near = drop(POWERUP_ENERGY, vec2(500, 426));
    step(tooFar);
    step(near);
    EXPECT_FALSE(tooFar->collected);
    EXPECT_EQ(near->collector, &wingman);
    delete near; // before its collector
    removeFromList(g_game->friends, static_cast<Friend*>(&wingman));
}

TEST_F(PowerupTest, TheDistanceIsTakenPlainlyNotAcrossTheWorldsSeam)
{
    player->position = vec2(10, 2048);
    Powerup* token = drop(POWERUP_ENERGY, vec2(4090, 2048)); // 16 units away across the seam
    step(token);
    EXPECT_FALSE(token->collected);
}

TEST_F(PowerupTest, OfTwoFriendsInRangeTheEarlierInTheFriendsListCatchesIt)
{
    player->position = kShipAt;
    Friend wingman;
    wingman.position = kShipAt + vec2(20, 0);
    g_game->friends.push(&wingman); // after the player
    Powerup* first = drop(POWERUP_ENERGY, kShipAt + vec2(10, 0));
    step(first);
    EXPECT_EQ(first->collector, player);

    removeFromList(g_game->friends, static_cast<Friend*>(player));
    g_game->friends.push(player); // now after the wingman
    Powerup* second = drop(POWERUP_ENERGY, kShipAt + vec2(10, 0));
    step(second);
    EXPECT_EQ(second->collector, &wingman);
    delete second;
    removeFromList(g_game->friends, static_cast<Friend*>(&wingman));
}

// --- The glide ---

TEST_F(PowerupTest, ACaughtTokenFollowsAFastShipAndLandsOnItAtTheEndOfTheGlide)
{
    player->position = vec2(1000, 1000);
    Powerup* token = drop(POWERUP_ENERGY, vec2(1100, 1000));
    step(token);
    ASSERT_TRUE(token->collected);
    const vec2 from = token->collectFrom;
    const float caughtAt = token->collectStart;
    const vec2 shipVelocity(350, -250); // world units per second
    for (int i = 0; i < 15; ++i) { // 240 ms of the glide
        player->position += shipVelocity * 0.016f;
        step(token);
    }
    const float t = (Vorlik::currentTime - caughtAt) / 500.0f;
    const float s = (1 - std::cos(vorlik::kPi * t)) / 2;
    EXPECT_NEAR(token->position.x, from.x + (player->position.x - from.x) * s, 1e-2);
    EXPECT_NEAR(token->position.y, from.y + (player->position.y - from.y) * s, 1e-2);
    EXPECT_NEAR(token->scale, 1 - s, 1e-5);
    EXPECT_NEAR(token->group->scale, 1 - s, 1e-5);

    while (listed(token)) {
        player->position += shipVelocity * 0.016f;
        step(token);
    }
    EXPECT_GE(Vorlik::currentTime, caughtAt + 500);
    TextIndicator* message = onlyWorldMessage();
    ASSERT_NE(message, nullptr);
    EXPECT_FLOAT_EQ(message->position.x, player->position.x); // landed on the ship
    EXPECT_FLOAT_EQ(message->position.y, player->position.y - 35);
}

TEST_F(PowerupTest, HalfwayThroughTheGlideItIsHalfwayThereAtHalfItsSize)
{
    player->position = vec2(1000, 1000);
    Powerup* token = drop(POWERUP_SHIELD, vec2(1000, 1120));
    step(token);
    ASSERT_TRUE(token->collected);
    step(token, 250);
    EXPECT_FLOAT_EQ(token->position.y, 1060);
    EXPECT_FLOAT_EQ(token->scale, 0.5f);
    EXPECT_TRUE(listed(token));
}

TEST_F(PowerupTest, AtTheEndOfTheGlideItAppliesOnceDeletesItselfAndLeavesBothLists)
{
    player->position = vec2(1000, 1000);
    player->energy = 5;
    Powerup* other = drop(POWERUP_ENERGY, vec2(3000, 3000));
    Powerup* token = drop(POWERUP_ENERGY, vec2(1050, 1000));
    step(token);
    ASSERT_TRUE(token->collected);
    const uint32_t worldBefore = g_world->count;
    step(token, 499);
    EXPECT_TRUE(listed(token));
    EXPECT_EQ(player->energy, 5.0f); // not yet applied
    step(token, 1);                  // t = 1: applies and deletes itself
    EXPECT_EQ(player->energy, player->maxEnergy);
    EXPECT_FALSE(listed(token));
    ASSERT_EQ(g_game->powerups.count, 1u);
    EXPECT_EQ(g_game->powerups[0], other);
    EXPECT_EQ(g_world->count, worldBefore); // the token's group went, the message came
    EXPECT_EQ(worldMessages().size(), 1u);
}

TEST_F(PowerupTest, ACollectorDeletedDuringTheGlideIsNeverReadAndTheTokenLandsWhereItLastSawIt)
{
    auto* wingman = new Friend();
    wingman->position = vec2(600, 600);
    g_game->friends.push(wingman);
    Powerup* token = drop(POWERUP_ENERGY, vec2(600, 650));
    step(token);
    ASSERT_EQ(token->collector, wingman);
    wingman->position = vec2(640, 600);
    step(token, 100);
    removeFromList(g_game->friends, static_cast<Friend*>(wingman));
    delete wingman; // the sanitizer build fails on any later read of it
    while (listed(token)) step(token, 50);
    TextIndicator* message = onlyWorldMessage();
    ASSERT_NE(message, nullptr);
    EXPECT_FLOAT_EQ(message->position.x, 640);
    EXPECT_FLOAT_EQ(message->position.y, 600 - 35);
}

TEST_F(PowerupTest, ACollectorThatLeavesTheFriendsIsNoLongerFollowed)
{
    player->position = vec2(1000, 1000);
    Powerup* token = drop(POWERUP_ENERGY, vec2(1000, 1100));
    step(token);
    player->position = vec2(1000, 1010);
    step(token, 100);
    removeFromList(g_game->friends, static_cast<Friend*>(player)); // as a dying ship does
    player->position = vec2(3000, 3000);
    while (listed(token)) step(token, 50);
    TextIndicator* message = onlyWorldMessage();
    ASSERT_NE(message, nullptr);
    EXPECT_FLOAT_EQ(message->position.x, 1000);
    EXPECT_FLOAT_EQ(message->position.y, 1010 - 35);
}

// --- Effects and messages ---

// Applies a token of the given kind at at directly and returns the message it floats.
class PowerupEffectTest : public PowerupTest {
protected:
    TextIndicator* applyAt(int kind, vec2 at = vec2(1200, 700))
    {
        Powerup* token = drop(kind, at);
        token->apply();
        delete token;
        return onlyWorldMessage();
    }
};

TEST_F(PowerupEffectTest, EachKindFloatsItsMessageInGreen35AboveTheTokenInTheWorld)
{
    const char* const messages[POWERUP_KIND_COUNT] = {"Upgrade +",   "Energy restored", "Shield restored",
                                                      "Extra score", "Hull restored",   "Speed boost",
                                                      "Free MegaNuke"};
    const float green[4] = {0.1f, 1.0f, 0.15f, 1.0f};
    for (int kind = 0; kind < POWERUP_KIND_COUNT; ++kind) {
        const uint32_t hudBefore = g_hud->count;
        TextIndicator* message = applyAt(kind, vec2(1200, 700));
        ASSERT_NE(message, nullptr) << kind;
        const char* text = message->text->text.data;
        if (kind == POWERUP_UPGRADE) EXPECT_EQ(std::strncmp(text, messages[kind], 9), 0) << text;
        else EXPECT_STREQ(text, messages[kind]);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(message->text->color[i], green[i]) << kind;
        EXPECT_EQ(message->position, vec2(1200, 665)) << kind;
        EXPECT_EQ(message->text->position, vorlik::vec3(1200, 665, 0)) << kind;
        EXPECT_EQ(message->scale, 1.0f);
        EXPECT_EQ(message->text->fontHeight, 16.0f);
        EXPECT_EQ(message->startTime, Vorlik::currentTime);
        EXPECT_EQ(g_hud->count, hudBefore) << kind;
        delete message;
    }
}

TEST_F(PowerupEffectTest, TheUpgradeMessageIsUpgradePlus10203040AndTheAmountGoesToTheReserve)
{
    std::set<int> seen;
    forEachSeed([&](int s) {
        const int32_t reserveBefore = g_game->reserve;
        const int counterBefore = g_game->reserveCounter->value;
        TextIndicator* message = applyAt(POWERUP_UPGRADE);
        ASSERT_NE(message, nullptr) << s;
        const std::string text = message->text->text.data;
        const int gained = g_game->reserve - reserveBefore;
        EXPECT_EQ(text, "Upgrade +" + std::to_string(gained)) << s;
        EXPECT_TRUE(gained == 10 || gained == 20 || gained == 30 || gained == 40) << text;
        EXPECT_EQ(g_game->reserveCounter->value - counterBefore, gained);
        seen.insert(gained);
        delete message;
    });
    EXPECT_EQ(seen, (std::set<int>{10, 20, 30, 40}));
}

TEST_F(PowerupEffectTest, EnergyRestoredFillsTheShipsEnergy)
{
    player->energy = 12;
    delete applyAt(POWERUP_ENERGY);
    EXPECT_EQ(player->energy, 350.0f);
}

TEST_F(PowerupEffectTest, ShieldRestoredGivesTheMaximumShieldWhichIsNoneOnThePlayersShip)
{
    delete applyAt(POWERUP_SHIELD);
    EXPECT_EQ(player->shield, 0.0f);
    player->maxShield = 40;
    delete applyAt(POWERUP_SHIELD);
    EXPECT_EQ(player->shield, 40.0f);
}

TEST_F(PowerupEffectTest, ExtraScoreAdds500To1400InHundredsToTheScoreCounter)
{
    std::set<int> seen;
    forEachSeed([&](int) {
        const int before = g_game->scoreCounter->value;
        delete applyAt(POWERUP_EXTRA_SCORE);
        const int gained = g_game->scoreCounter->value - before;
        EXPECT_EQ(gained % 100, 0) << gained;
        EXPECT_GE(gained, 500);
        EXPECT_LE(gained, 1400);
        seen.insert(gained);
    });
    EXPECT_EQ(seen.size(), 10u);
}

TEST_F(PowerupEffectTest, HullRestoredGivesADamagedShip100AndAFreshShip100Too)
{
    player->hull = 30;
    delete applyAt(POWERUP_HULL);
    EXPECT_EQ(player->hull, 100.0f);
    player->hull = 125; // a fresh ship has more than a repair gives back
    delete applyAt(POWERUP_HULL);
    EXPECT_EQ(player->hull, 100.0f);
}

TEST_F(PowerupEffectTest, SpeedBoostOpensAWindowOf5To9WholeSecondsFromNow)
{
    std::set<float> seen;
    forEachSeed([&](int) {
        player->boostActive = 0;
        delete applyAt(POWERUP_SPEED_BOOST);
        EXPECT_EQ(player->boostActive, 1);
        EXPECT_EQ(player->boostStart, static_cast<float>(Vorlik::currentTime));
        const float length = player->boostEnd - player->boostStart;
        EXPECT_TRUE(length == 5000 || length == 6000 || length == 7000 || length == 8000 || length == 9000)
            << length;
        seen.insert(length);
    });
    EXPECT_EQ(seen.size(), 5u);
}

TEST_F(PowerupEffectTest, TheEffectGoesToThePlayerWhicheverFriendCaughtTheToken)
{
    player->energy = 3;
    Friend wingman;
    wingman.position = vec2(700, 700);
    g_game->friends.push(&wingman);
    Powerup* token = drop(POWERUP_ENERGY, vec2(700, 720));
    step(token);
    ASSERT_EQ(token->collector, &wingman);
    while (listed(token)) step(token, 50);
    EXPECT_EQ(player->energy, 350.0f);
    removeFromList(g_game->friends, static_cast<Friend*>(&wingman));
}

// A token caught just before the last ship is lost lands after the ship is down: the repair
// must not bring the dead ship back, or the session would never see the game end.
TEST_F(PowerupTest, HullRestoredOnADeadShipLeavesItDeadAndTheGameEndsOnTheNextFrame)
{
    g_game->lives = 0;
    player->position = vec2(2048, 2048);
    Powerup* token = drop(POWERUP_HULL, vec2(2048, 2100));
    step(token);
    ASSERT_TRUE(token->collected);
    EXPECT_FALSE(player->damage(1000)); // the last ship goes down and leaves the lists
    ASSERT_EQ(player->hull, 0.0f);
    Vorlik::currentTime += 500;
    g_game->frame(); // the token lands and applies in the session's walk
    EXPECT_FALSE(listed(token));
    EXPECT_EQ(player->hull, 0.0f);
    EXPECT_FALSE(g_game->playing);
}

} // namespace
