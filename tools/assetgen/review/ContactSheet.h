// ContactSheet: one dark review sheet of every picture with its name, and beside them
// each one as the game will show it, composited in software.
#pragma once

#include <string>

#include "core/AssetSink.h"

namespace assetgen {

void writeContactSheet(const AssetSink& sink, const std::string& path);

} // namespace assetgen
