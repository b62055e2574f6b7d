#include "play/WaveTable.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// The ships of each batch in wave, in table order, for the batches whose first wave has come;
// the first batch still to come ends the list, as it ends the spawning.
std::vector<int32_t> batchesOf(int32_t wave)
{
    std::vector<int32_t> sizes;
    for (const WaveBatch& batch : kWaveBatches) {
        if (wave < batch.firstWave) break;
        sizes.push_back(batchSize(batch, wave));
    }
    return sizes;
}

int32_t shipsOf(int32_t wave)
{
    int32_t total = 0;
    for (int32_t n : batchesOf(wave)) total += n;
    return total;
}

} // namespace

TEST(WaveTableTest, BatchesComeInTypeOrderFromTheirFirstWaves)
{
    const EnemyKind kinds[] = {ENEMY_FIGHTER, ENEMY_FIGHTER2, ENEMY_HAMMERHEAD, ENEMY_PROBE,
                               ENEMY_PROBE2,  ENEMY_HAMMERHEAD2, ENEMY_PROBE3};
    const int32_t firstWaves[] = {1, 3, 6, 9, 13, 15, 17};
    for (uint32_t i = 0; i < kWaveBatchCount; ++i) {
        EXPECT_EQ(kWaveBatches[i].kind, kinds[i]) << i;
        EXPECT_EQ(kWaveBatches[i].firstWave, firstWaves[i]) << i;
    }
}

TEST(WaveTableTest, TheFirstWaveBringsThirteenFightersAndTheSecondFifteen)
{
    EXPECT_EQ(batchesOf(1), std::vector<int32_t>({13}));
    EXPECT_EQ(batchesOf(2), std::vector<int32_t>({15}));
}

TEST(WaveTableTest, ACountIsTheWholePartOfTheFormulaPlusOne)
{
    // 2.4 x 1 + 10 = 12.4 gives 13; 2.2 x 0 + 3 = 3 exactly gives 4.
    EXPECT_EQ(batchSize(kWaveBatches[0], 1), 13);
    EXPECT_EQ(batchSize(kWaveBatches[1], 3), 4);
    // 2.5 x 4 + 2 = 12 exactly gives 13.
    EXPECT_EQ(batchSize(kWaveBatches[2], 9), 13);
}

TEST(WaveTableTest, WaveCountsFollowTheTable)
{
    EXPECT_EQ(batchesOf(3), std::vector<int32_t>({18, 4}));
    EXPECT_EQ(batchesOf(5), std::vector<int32_t>({23, 8}));
    EXPECT_EQ(batchesOf(6), std::vector<int32_t>({25, 10, 5}));
    EXPECT_EQ(batchesOf(9), std::vector<int32_t>({32, 17, 13, 23}));
    EXPECT_EQ(shipsOf(9), 85);
    EXPECT_EQ(batchesOf(13), std::vector<int32_t>({42, 26, 23, 35, 23}));
    EXPECT_EQ(batchesOf(15), std::vector<int32_t>({47, 30, 28, 41, 29, 3}));
    EXPECT_EQ(batchesOf(17), std::vector<int32_t>({51, 34, 33, 47, 35, 8, 23}));
    EXPECT_EQ(shipsOf(17), 231);
    EXPECT_EQ(shipsOf(20), 286);
}

TEST(WaveTableTest, TheOffsetsAreUnevenBetweenTheTwoHammerheads)
{
    // The first Hammerhead batch counts from wave 5 although it first comes at wave 6; the
    // second counts from its own first wave, 15.
    EXPECT_EQ(batchSize(kWaveBatches[2], 6), 5);
    EXPECT_EQ(batchSize(kWaveBatches[5], 15), 3);
}

TEST(WaveTableTest, AtWaveTenThereIsNoHammerhead2YetNorAnyLaterType)
{
    const std::vector<int32_t> wave10 = batchesOf(10);
    ASSERT_EQ(wave10.size(), 4u); // fighters, fighters 2, hammerheads, probes
    EXPECT_EQ(batchesOf(14).size(), 5u);
    EXPECT_EQ(batchesOf(16).size(), 6u);
}
