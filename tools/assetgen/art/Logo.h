// Logo: the "Kelvane" title picture (title, 1024 x 256): bevelled violet letters with a
// dark edge and a soft halo. The game loads it but does not show it.
#pragma once

#include "core/AssetSink.h"

namespace assetgen {

void makeLogo(AssetSink& sink);

} // namespace assetgen
