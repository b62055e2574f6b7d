#include "core/AssetSink.h"

#include <cstdio>

#include "core/PngFile.h"

namespace assetgen {

void AssetSink::picture(const std::string& name, const Canvas& canvas)
{
    Picture pic = toPicture(canvas);
    if (!writePng(outputPath("gfx/" + name + ".png"), pic))
        fail(name);
    std::lock_guard<std::mutex> lock(mutex_);
    pictures_[name] = std::move(pic);
}

const Picture* AssetSink::find(const std::string& name) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = pictures_.find(name);
    return it == pictures_.end() ? nullptr : &it->second;
}

std::string AssetSink::outputPath(const std::string& relative)
{
    std::lock_guard<std::mutex> lock(mutex_);
    written_.insert(relative);
    return runDir_ + "/" + relative;
}

std::set<std::string> AssetSink::written() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return written_;
}

void AssetSink::fail(const std::string& what)
{
    std::fprintf(stderr, "assetgen: failed: %s\n", what.c_str());
    std::lock_guard<std::mutex> lock(mutex_);
    failed_ = true;
}

bool AssetSink::ok() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return !failed_;
}

} // namespace assetgen
