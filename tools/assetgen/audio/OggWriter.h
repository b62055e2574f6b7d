// OggWriter: encodes mono float samples (in [-1, 1]) as an Ogg Vorbis file with libvorbisenc.
// The stream serial number is fixed, so equal samples give an equal file.
#pragma once

#include <string>
#include <vector>

namespace assetgen {

// Returns false (after printing why) when encoding or writing fails.
bool writeOggVorbis(const std::string& path, const std::vector<float>& samples, int rate, float quality);

} // namespace assetgen
