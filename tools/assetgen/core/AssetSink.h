// AssetSink: where the generators hand over finished pictures and files. It writes each
// picture as <run dir>/gfx/<name>.png and keeps it for the contact sheet, and it remembers
// every file written under the run directory, so the run can be checked against the list
// of generated files. Safe to call from the worker threads; a failed write is reported and
// remembered, and the run goes on.
#pragma once

#include <map>
#include <mutex>
#include <set>
#include <string>

#include "core/Canvas.h"

namespace assetgen {

class AssetSink {
public:
    explicit AssetSink(std::string runDir) : runDir_(std::move(runDir)) {}

    void picture(const std::string& name, const Canvas& canvas);
    // A picture written under gfx/ by its name; null if none was made.
    const Picture* find(const std::string& name) const;
    // The full path of a file about to be written, given relative to the run directory
    // ("sfx/music1.ogg"); from now on the file counts as written by this run.
    std::string outputPath(const std::string& relative);
    // Every file written so far, relative to the run directory.
    std::set<std::string> written() const;
    void fail(const std::string& what);
    bool ok() const;

private:
    std::string runDir_;
    mutable std::mutex mutex_;
    std::map<std::string, Picture> pictures_;
    std::set<std::string> written_;
    bool failed_ = false;
};

} // namespace assetgen
