#include "play/GameSession.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "core/String.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "hud/HUD_RadarBox.h"
#include "hud/HUD_ScoreBox.h"
#include "hud/HUD_WeaponBox.h"
#include "hud/Reticle.h"
#include "hud/ScoreCounter.h"
#include "play/Enemy.h"
#include "play/EnemyTypes.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "play/WaveTable.h"
#include "play/WorldGeometry.h"
#include "player/Player.h"
#include "player/TextIndicator.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"
#include "scene/Starfield.h"
#include "scene/DirectScene2D.h"
#include "scene/Text.h"

#include <memory>

using vorlik::Vorlik;

GameSession* g_game = nullptr;

namespace {

constexpr double kToughnessPerWave = 1.1;
constexpr double kSpeedPerWave = 1.07;
constexpr double kFirePerWave = 1.002;

constexpr uint32_t kStarCount = 512;
constexpr float kScoreTextX = 15.0f;         // pixels
constexpr float kScoreTextY = 12.0f;
constexpr float kGameOverY = 0.4f;           // of the window height
constexpr float kCameraLead = 0.3f;          // of the ship's drift
constexpr float kDriftZoomOut = 0.2f;        // at full drift the view pulls back by this much
constexpr uint32_t kSparkParticles = 1024;
constexpr uint32_t kExplosionParticles = 4096;
constexpr uint32_t kExplosionSetting = 1;

float now() { return static_cast<float>(Vorlik::currentTime); }

// factor x step in double precision, stored as float.
float grow(float factor, double step) { return static_cast<float>(static_cast<double>(factor) * step); }

} // namespace

GameSession::GameSession()
    : actors(kActorListCapacity),
      enemies(kActorListCapacity),
      friends(kActorListCapacity),
      others(kActorListCapacity),
      powerups(kActorListCapacity)
{
    // Each part is held here until the last is made, so that a failed allocation frees the
    // parts already built (the slice before its system).
    std::unique_ptr<ParticleSystem> sparks(new ParticleSystem(kSparkParticles));
    std::unique_ptr<ParticleSystem> explosions(new ParticleSystem(kExplosionParticles, kExplosionSetting));
    std::unique_ptr<ParticleSlice> slice(
        explosions->createSlice(ParticleSystem::kLeaveWhenEmpty, ParticleSystem::kKeepWhenEmpty));
    std::unique_ptr<Starfield> stars(new Starfield(kStarCount));
    std::unique_ptr<Text> over(new Text(Resources::font_big, "Game Over"));
    sparks->texture = Resources::proc_particle0_tex;
    explosions->texture = Resources::proc_particle0_tex;

    sparkParticles = sparks.release();
    explosionParticles = explosions.release();
    explosionSlice = slice.release();
    starfield = stars.release();
    gameOverText = over.release();
}

GameSession::~GameSession()
{
    // Newest first. Each actor is taken off the list before it is deleted, so the loop ends
    // even if its destructor finds some other session in g_game.
    while (actors.count > 0) {
        Actor* actor = actors.pop();
        if (actor != player) delete actor; // the score counter too: it then leaves its box
    }
    delete player;
    delete scoreBox;
    delete weaponBox;
    delete radarBox;
    delete reticle;
    delete starfield;
    delete gameOverText;
    // The particle systems go last: every slice of theirs that a gun or the explosion held is
    // gone by now.
    delete explosionSlice;
    delete explosionParticles;
    delete sparkParticles;
}

void GameSession::start()
{
    g_world->clear();
    g_hud->clear();
    g_world->add(starfield);

    scoreBox = new HUD_ScoreBox();
    scoreCounter = scoreBox->counter;
    actors.push(scoreCounter);
    weaponBox = new HUD_WeaponBox();
    radarBox = new HUD_RadarBox();
    g_hud->add(scoreBox);
    g_hud->add(weaponBox);
    g_hud->add(radarBox);
    reticle = new Reticle();
    g_hud->add(reticle);
    reserveCounter = weaponBox->counters[HUD_WeaponBox::kReserveCounter];

    player = new Player();
    friends.push(player);
    actors.push(player);
    if (player->drawable != nullptr) g_world->add(player->drawable);
    g_world->add(player->plasma);
    g_world->add(player->laser);

    g_hud->add(scoreCounter->text);
    scoreCounter->position = vorlik::vec2(kScoreTextX, kScoreTextY);
    scoreCounter->value = scoreCounter->shownFrom = 0;
    scoreCounter->rollStart = scoreCounter->rollEnd = 0;
    g_world->add(explosionSlice);

    player->position = vorlik::vec2(kWorldWidth / 2.0f, kWorldHeight / 2.0f);
    shakeStrength = shakeStart = shakeEnd = 0.0f;
    toughness = 1.0f;
    wave = 0;
    reserve = 0;
    lives = kStartingLives;
    playing = true;
    gameOverStart = gameOverEnd = 0.0f;
    nextWaveTime = now() + kFirstWaveDelay;
}

void GameSession::frame()
{
    const float t = now();
    reticle->updateReticle();
    updateAll(actors);
    sparkParticles->update();
    explosionParticles->update();

    if (!playing) {
        gameOverText->color[3] =
            t < gameOverEnd ? vorlik::clamp((t - gameOverStart) / (gameOverEnd - gameOverStart), 0.0f, 1.0f) : 1.0f;
    } else if (player->hull <= 0.0f && lives == 0) {
        playing = false;
        gameOverStart = t;
        gameOverEnd = t + kGameOverFade;
        gameOverText->setAnchor(ANCHOR_CENTRE);
        gameOverText->position = vorlik::vec3(Vorlik::getWidth() * 0.5f, Vorlik::getHeight() * kGameOverY, 0.0f);
        gameOverText->color[3] = 0.0f;
        g_hud->add(gameOverText);
    } else if (waveIsDue(player->hull > 0.0f, wave, enemies.count, t, nextWaveTime)) {
        startWave();
    }

    WorldView& camera = g_world->camera;
    const vorlik::vec2 before(camera.x, camera.y);
    const vorlik::vec2 lead = player->position + player->drift * kCameraLead;
    camera.x = lead.x;
    camera.y = lead.y;
    camera.zoom = 1.0f - player->drift.length() / player->driftLimit * kDriftZoomOut;
    const vorlik::vec2 shaken = vorlik::vec2(camera.x, camera.y) + shakeOffset();
    camera.x = shaken.x;
    camera.y = shaken.y;
    starfield->update(Starfield::cameraStep(before, shaken,
                                            vorlik::vec2(static_cast<float>(Vorlik::getWidth()),
                                                         static_cast<float>(Vorlik::getHeight())),
                                            vorlik::vec2(kWorldWidth, kWorldHeight)));
}

void GameSession::startWave()
{
    nextWaveTime = now() + kWaveDurationStep * static_cast<float>(wave) + kWaveDuration;
    ++wave;

    vorlik::String message("Wave ");
    message += vorlik::String(wave);
    message += " incoming";
    TextIndicator::hudNotice(message.data);

    speedFactor = grow(speedFactor, kSpeedPerWave);
    fireFactor = grow(fireFactor, kFirePerWave);
    toughness = grow(toughness, kToughnessPerWave);

    spawnBatches();

    if (g_world == nullptr) return;
    for (Enemy* enemy : enemies)
        if (enemy->drawable != nullptr) g_world->add(enemy->drawable);
    if (player != nullptr) {
        g_world->add(player->plasma);
        g_world->add(player->laser);
    }
}

void GameSession::spawnBatches()
{
    for (const WaveBatch& batch : kWaveBatches) {
        // The rows are in order of their first waves: one still to come ends the spawning.
        if (wave < batch.firstWave) break;
        for (int32_t n = batchSize(batch, wave); n > 0; --n) {
            EnemyShip* ship = makeEnemy(batch.kind);
            enemies.push(ship);
            actors.push(ship);
        }
    }
}

void GameSession::areaDamage(const vorlik::vec2& centre, float radius)
{
    for (uint32_t i = 0; i < enemies.count;) {
        Enemy* enemy = enemies[i];
        vorlik::vec2 images[kWrapImageCount];
        wrapImages(enemy->position, images);
        bool reached = false;
        for (const vorlik::vec2& image : images) {
            if ((image - centre).length() < radius) {
                reached = true;
                break;
            }
        }
        ++i;
        if (reached) enemy->explode();
    }
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
