// How many ships of each type a wave brings: one row per type, in spawning order, each with
// the wave it first comes in and a count that grows linearly with the wave number. The
// offsets are uneven between rows on purpose; they are the game's tuning.
#pragma once

#include "play/EnemyTypes.h"

#include <cstdint>

struct WaveBatch {
    EnemyKind kind;
    int32_t firstWave;
    double perWave; // ships per wave ...
    double offset;  // ... counted from this wave
    double base;    // ships at the offset wave, before the one always added
};

constexpr uint32_t kWaveBatchCount = 7;
extern const WaveBatch kWaveBatches[kWaveBatchCount];

// Ships of batch in wave: the whole part of perWave x (wave - offset) + base, in double
// precision, plus one. Only for a wave at or after the batch's first wave.
int32_t batchSize(const WaveBatch& batch, int32_t wave);
