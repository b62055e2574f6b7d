// The music track decodes the way the game's mixer opens it: 44.1 kHz mono Ogg Vorbis, a
// loop of 60 to 120 seconds, below full scale, small enough to ship.
#include <vorbis/vorbisfile.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "RunDirFiles.h"

namespace {

struct Decoded {
    long rate = 0;
    int channels = 0;
    std::vector<short> samples;
};

bool decode(const std::string& path, Decoded& out)
{
    OggVorbis_File vf;
    if (ov_fopen(path.c_str(), &vf) != 0)
        return false;
    vorbis_info* info = ov_info(&vf, -1);
    out.rate = info->rate;
    out.channels = info->channels;
    char buffer[8192];
    int section = 0;
    long got;
    while ((got = ov_read(&vf, buffer, sizeof buffer, 0, 2, 1, &section)) > 0) {
        const short* s = reinterpret_cast<const short*>(buffer);
        out.samples.insert(out.samples.end(), s, s + got / 2);
    }
    ov_clear(&vf);
    return got == 0;
}

} // namespace

TEST(Music, DecodesAsALoopBelowFullScale)
{
    const std::string path = testing_assets::runPath("sfx/music1.ogg");
    Decoded d;
    ASSERT_TRUE(decode(path, d));
    EXPECT_EQ(d.rate, 44100);
    EXPECT_EQ(d.channels, 1);
    double seconds = static_cast<double>(d.samples.size()) / 44100.0;
    EXPECT_GE(seconds, 60.0);
    EXPECT_LE(seconds, 120.0);

    int peak = 0;
    for (short s : d.samples)
        peak = std::max(peak, std::abs(static_cast<int>(s)));
    EXPECT_LT(peak, 32000);
    EXPECT_GT(peak, 16000);  // and not near silence

    EXPECT_LT(testing_assets::readFile(path).size(), 2u * 1024 * 1024);
}

TEST(Music, EndRunsIntoTheStart)
{
    Decoded d;
    ASSERT_TRUE(decode(testing_assets::runPath("sfx/music1.ogg"), d));
    ASSERT_GT(d.samples.size(), 1000u);
    // The step from the last sample back to the first is no bigger than the music's own
    // steps between neighbouring samples around it.
    int around = 0;
    for (size_t i = 1; i < 512; ++i) {
        around = std::max(around, std::abs(d.samples[i] - d.samples[i - 1]));
        size_t j = d.samples.size() - i;
        around = std::max(around, std::abs(d.samples[j] - d.samples[j - 1]));
    }
    EXPECT_LE(std::abs(d.samples.front() - d.samples.back()), around);
}
