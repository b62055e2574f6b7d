// Song: Kelvane's music, an original loop of 40 bars at 112 beats a minute in A minor
// (about 86 seconds): a slow pad, a bass line, an arpeggio through a delay, a soft lead and
// light drums. Rendered so the end flows into the start: notes and echoes that ring past
// the end of the loop sound again at its beginning.
#pragma once

#include <vector>

namespace assetgen {

constexpr int kBeatSamples = 23625;  // 112 beats a minute at 44.1 kHz
constexpr int kBeatsPerBar = 4;
constexpr int kBars = 40;
constexpr int kLoopSamples = kBeatSamples * kBeatsPerBar * kBars;
constexpr float kMusicPeak = 0.89f;   // about -1 dB below full scale

// The whole loop, mono, at 44.1 kHz.
std::vector<float> renderSong();

} // namespace assetgen
