#include "play/WaveTable.h"

// clang-format off
const WaveBatch kWaveBatches[kWaveBatchCount] = {
    // kind              first  per wave  offset  base
    {ENEMY_FIGHTER,      1,     2.4,      0.0,    10.0},
    {ENEMY_FIGHTER2,     3,     2.2,      3.0,     3.0},
    {ENEMY_HAMMERHEAD,   6,     2.5,      5.0,     2.0},
    {ENEMY_PROBE,        9,     2.9,      8.0,    20.0},
    {ENEMY_PROBE2,      13,     2.9,     12.0,    20.0},
    {ENEMY_HAMMERHEAD2, 15,     2.5,     15.0,     2.0},
    {ENEMY_PROBE3,      17,     2.9,     16.0,    20.0},
};
// clang-format on

int32_t batchSize(const WaveBatch& batch, int32_t wave)
{
    return static_cast<int32_t>(batch.perWave * (wave - batch.offset) + batch.base) + 1;
}
