#include "play/GameSession.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "core/String.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "player/TextIndicator.h"
#include "scene/DirectScene2D.h"
#include "scene/Text.h"

using vorlik::Vorlik;

GameSession* g_game = nullptr;

namespace {

constexpr float kAnnouncementHeight = 16.0f; // pixels per character
constexpr float kAnnouncementScale = 1.5f;
constexpr float kAnnouncementY = 0.4f;       // of the window height, from the top
constexpr float kWhite[4] = {1.0f, 1.0f, 1.0f, 1.0f};
constexpr double kToughnessPerWave = 1.1;
constexpr double kSpeedPerWave = 1.07;
constexpr double kFirePerWave = 1.002;

float now() { return static_cast<float>(Vorlik::currentTime); }

// factor x step in double precision, stored as float.
float grow(float factor, double step) { return static_cast<float>(static_cast<double>(factor) * step); }

} // namespace

GameSession::GameSession()
    : actors(kActorListCapacity),
      enemies(kActorListCapacity),
      friends(kActorListCapacity),
      others(kActorListCapacity),
      powerups(kActorListCapacity),
      gameOverText(new Text(Resources::font_big, "Game Over"))
{
}

GameSession::~GameSession()
{
    // Newest first. Each actor is taken off the list before it is deleted, so the loop ends
    // even if its destructor finds some other session in g_game.
    while (actors.count > 0) delete actors.pop();
    delete gameOverText;
}

void GameSession::startWave()
{
    nextWaveTime = now() + kWaveDurationStep * static_cast<float>(wave) + kWaveDuration;
    ++wave;

    vorlik::String message("Wave ");
    message += vorlik::String(wave);
    message += " incoming";
    auto* announcement = new TextIndicator(Resources::font_medium, message.data, kAnnouncementHeight, kWhite,
                                           ANCHOR_CENTRE);
    announcement->scale = kAnnouncementScale;
    announcement->position =
        vorlik::vec2(Vorlik::getWidth() * 0.5f, Vorlik::getHeight() * kAnnouncementY);
    actors.push(announcement);
    if (g_hud != nullptr) g_hud->add(announcement->text);

    speedFactor = grow(speedFactor, kSpeedPerWave);
    fireFactor = grow(fireFactor, kFirePerWave);
    toughness = grow(toughness, kToughnessPerWave);
}

void GameSession::shake(float duration, float strength)
{
    shakeStrength = strength;
    shakeStart = now();
    shakeEnd = shakeStart + duration;
}

vorlik::vec2 GameSession::shakeOffset()
{
    const float t = now();
    if (!(t < shakeEnd)) return vorlik::vec2(0.0f, 0.0f);
    const float y = g_rand.range(-1.0f, 1.0f);
    const float x = g_rand.range(-1.0f, 1.0f);
    const float strength = vorlik::lerp((t - shakeStart) / (shakeEnd - shakeStart), shakeStrength, 0.0f);
    return vorlik::vec2(x, y) * strength;
}

bool GameSession::waveIsDue(bool shipAlive, int32_t wave, uint32_t enemyCount, float now, float nextWaveTime)
{
    return shipAlive && ((wave > 0 && enemyCount == 0) || now > nextWaveTime);
}
