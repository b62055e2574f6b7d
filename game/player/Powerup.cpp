#include "player/Powerup.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "core/String.h"
#include "hud/ScoreCounter.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/GameSession.h"
#include "player/Player.h"
#include "player/TextIndicator.h"
#include "scene/Fader.h"
#include "scene/Group.h"
#include "scene/Sprite.h"

#include <algorithm>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr float kSize = 48.0f;           // pixels, both sprites
constexpr int32_t kGridColumns = 16;     // animation frames per row of the pictures
constexpr int32_t kGridRows = 16;
constexpr float kFrameCount = kGridColumns * kGridRows;
constexpr float kDriftSpeed = 75.0f;     // world units per second, the most on each axis
constexpr float kDrag = 0.2f;            // of the velocity lost per second

constexpr int32_t kFirstDrawEnd = 100;   // the first kind draw is in 0..99
constexpr int32_t kLastUpgradeDraw = 89; // and up to here it makes an Upgrade: 90 in 100
constexpr int32_t kSecondDrawEnd = 110;  // the second kind draw is in 0..109

constexpr float kMessageColour[4] = {0.1f, 1.0f, 0.15f, 1.0f}; // green
constexpr float kMessageLift = 35.0f;    // world units above the token

float now() { return static_cast<float>(Vorlik::currentTime); }

// Upgrade: 10, 20, 30 or 40 into the session's reserve, shown on the reserve counter.
void upgrade(Player&, vorlik::String& message)
{
    constexpr int32_t kStep = 10;
    const int32_t amount = kStep * g_rand.range(1, 5);
    g_game->reserve += std::max(amount, 0);
    g_game->reserveCounter->addValue(amount);
    message += vorlik::String(amount);
}

void restoreEnergy(Player& ship, vorlik::String&) { ship.energy = ship.maxEnergy; }

void restoreShield(Player& ship, vorlik::String&) { ship.shield = ship.maxShield; }

// 500 to 1400 points, in hundreds.
void extraScore(Player&, vorlik::String&)
{
    constexpr int32_t kStep = 100;
    g_game->scoreCounter->addValue(kStep * g_rand.range(5, 15));
}

// A repair gives back the ship's maximum hull (100, less than the 125 of a fresh ship). It never
// raises a hull at or below 0: a token caught just before the last death would otherwise bring
// the dead ship back to 100, and the session, which ends the game on a ship down with no lives
// left, would never see that death.
void restoreHull(Player& ship, vorlik::String&)
{
    if (ship.hull > 0.0f) ship.hull = ship.maxHull;
}

// The boost window, 5 to 9 whole seconds from now.
void speedBoost(Player& ship, vorlik::String&)
{
    constexpr float kMsPerSecond = 1000.0f;
    ship.boostActive = 1;
    ship.boostStart = now();
    ship.boostEnd = now() + kMsPerSecond * static_cast<float>(g_rand.range(5, 10));
}

// Blows up every enemy within 720 to 820 world units of the ship, then flashes the window white
// and shakes the camera for the same 950 to 1249 ms, a fifth as many world units strong.
void megaNuke(Player& ship, vorlik::String&)
{
    constexpr float kRadius[2] = {720.0f, 820.0f};       // world units
    constexpr float kFlashTime[2] = {950.0f, 1250.0f};   // ms
    constexpr float kShakeDivisor = 5.0f;                // ms of flash per world unit of shake
    g_game->areaDamage(ship.position, g_rand.range(kRadius[0], kRadius[1]));
    const int32_t flash = static_cast<int32_t>(g_rand.range(kFlashTime[0], kFlashTime[1]));
    if (g_fader != nullptr) {
        g_fader->red = g_fader->green = g_fader->blue = g_fader->opacity = 1.0f;
        g_fader->fadeIn(static_cast<uint32_t>(flash));
    }
    g_game->shake(static_cast<float>(flash), static_cast<float>(flash) / kShakeDivisor);
}

// One kind: its message (the Upgrade's gets its amount appended by the effect), the band of
// the second kind draw that picks it (below drawBelow and at or above the row before's), and
// its effect on the player's ship.
struct KindRow {
    int kind;
    const char* message;
    int32_t drawBelow;
    void (*effect)(Player& ship, vorlik::String& message);
};

constexpr KindRow kKinds[POWERUP_KIND_COUNT] = {
    {POWERUP_UPGRADE, "Upgrade +", 0, upgrade}, // from the first draw, never the second
    {POWERUP_ENERGY, "Energy restored", 30, restoreEnergy},
    {POWERUP_SHIELD, "Shield restored", 60, restoreShield},
    {POWERUP_EXTRA_SCORE, "Extra score", 70, extraScore},
    {POWERUP_HULL, "Hull restored", 80, restoreHull},
    {POWERUP_SPEED_BOOST, "Speed boost", 100, speedBoost},
    {POWERUP_MEGANUKE, "Free MegaNuke", kSecondDrawEnd, megaNuke},
};

constexpr bool rowsAreInKindOrder()
{
    for (int i = 0; i < POWERUP_KIND_COUNT; ++i)
        if (kKinds[i].kind != i) return false;
    return true;
}
static_assert(rowsAreInKindOrder(), "kKinds is indexed by kind");

Sprite* animatedSprite(vorlik::Texture* texture)
{
    auto* sprite = new Sprite(texture, kSize, kSize);
    sprite->animated = 1;
    sprite->columns = kGridColumns;
    sprite->rows = kGridRows;
    sprite->frame = 0;
    return sprite;
}

} // namespace

Powerup::Powerup()
    : group(new Group()),
      sprite(animatedSprite(Resources::powerup_anim_tex)),
      glow(animatedSprite(Resources::powerup_glow_anim_tex))
{
    velocity.y = g_rand.range(-kDriftSpeed, kDriftSpeed);
    velocity.x = g_rand.range(-kDriftSpeed, kDriftSpeed);
    kind = drawKind();
    glow->setBlendMode(BLEND_ADDITIVE);
    group->add(sprite);
    group->add(glow);
    drawable = group;
}

Powerup::~Powerup()
{
    if (g_game != nullptr) {
        removeFromList(g_game->powerups, this);
        removeFromList(g_game->actors, static_cast<Actor*>(this));
    }
    delete group;
    delete sprite;
    delete glow;
}

void Powerup::update()
{
    const float t = now();
    frame = vorlik::wrap(frame + frameRate * Vorlik::sync, 0.0f, kFrameCount);
    sprite->frame = glow->frame = static_cast<int32_t>(frame);

    if (!collected) {
        position += velocity * Vorlik::sync;
        velocity *= 1.0f - Vorlik::sync * kDrag;
        // Plain distance, not across the world's seam; the first friend in the list wins.
        for (Friend* ship : g_game->friends) {
            if ((ship->position - position).length() >= ship->pickupRange) continue;
            collected = true;
            collector = ship;
            collectTo = ship->position;
            collectFrom = position;
            collectStart = t;
            collectEnd = t + kCollectTime;
            break;
        }
    } else {
        // The token follows its collector only while that ship is still among the friends: one
        // that has died or been deleted is never read again, and the token lands where it last
        // saw it.
        if (collector != nullptr) {
            const bool present = std::find(g_game->friends.begin(), g_game->friends.end(), collector) !=
                                 g_game->friends.end();
            if (present) collectTo = collector->position;
            else collector = nullptr;
        }
        const float along = vorlik::clamp((t - collectStart) / (collectEnd - collectStart), 0.0f, 1.0f);
        position.x = vorlik::smoothLerp(along, collectFrom.x, collectTo.x);
        position.y = vorlik::smoothLerp(along, collectFrom.y, collectTo.y);
        scale = vorlik::smoothLerp(along, 1.0f, 0.0f);
        if (along >= 1.0f) {
            apply();
            delete this;
            return;
        }
    }
    Actor::update();
}

void Powerup::apply()
{
    const KindRow& row = kKinds[kind];
    vorlik::String message(row.message);
    row.effect(*g_game->player, message);
    TextIndicator::worldNotice(message.data, kMessageColour, vec2(position.x, position.y - kMessageLift));
}

int Powerup::kindFor(int32_t first, int32_t second)
{
    if (first <= kLastUpgradeDraw) return POWERUP_UPGRADE;
    for (int k = POWERUP_UPGRADE + 1; k < POWERUP_KIND_COUNT; ++k)
        if (second < kKinds[k].drawBelow) return k;
    return POWERUP_MEGANUKE; // the second draw never reaches 110
}

int Powerup::drawKind()
{
    const int32_t first = g_rand.range(0, kFirstDrawEnd);
    const int32_t second = first > kLastUpgradeDraw ? g_rand.range(0, kSecondDrawEnd) : 0;
    return kindFor(first, second);
}
