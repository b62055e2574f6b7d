// AssetSink: where the generators hand over finished pictures. It writes each one as
// <run dir>/gfx/<name>.png and keeps it for the contact sheet. Safe to call from the
// worker threads; a failed write is reported and remembered, and the run goes on.
#pragma once

#include <map>
#include <mutex>
#include <string>

#include "core/Canvas.h"

namespace assetgen {

class AssetSink {
public:
    explicit AssetSink(std::string runDir) : runDir_(std::move(runDir)) {}

    void picture(const std::string& name, const Canvas& canvas);
    // A picture written under gfx/ by its name; null if none was made.
    const Picture* find(const std::string& name) const;
    const std::string& runDir() const { return runDir_; }
    void fail(const std::string& what);
    bool ok() const;

private:
    std::string runDir_;
    mutable std::mutex mutex_;
    std::map<std::string, Picture> pictures_;
    bool failed_ = false;
};

} // namespace assetgen
