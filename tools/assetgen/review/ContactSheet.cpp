#include "review/ContactSheet.h"

namespace assetgen {

void writeContactSheet(const AssetSink&, const std::string&) {}

} // namespace assetgen
