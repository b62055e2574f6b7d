#include "Generator.h"

#include <atomic>
#include <set>
#include <thread>

#include "art/Effects.h"
#include "art/Enemies.h"
#include "art/Hud.h"
#include "art/Logo.h"
#include "art/Player.h"
#include "art/Powerup.h"
#include "art/Sky.h"
#include "audio/Dsp.h"
#include "audio/OggWriter.h"
#include "audio/Song.h"
#include "text/Fonts.h"

namespace assetgen {

namespace {

constexpr float kMusicQuality = 0.3f;  // Vorbis VBR quality: about 70 kbit/s for mono
const std::string kPictureDir = "gfx/";
const std::string kPictureExtension = ".png";

void makeMusic(AssetSink& sink)
{
    if (!writeOggVorbis(sink.outputPath("sfx/music1.ogg"), renderSong(), kSampleRate, kMusicQuality))
        sink.fail("music1.ogg");
}

Maker skyFace(CubeFace face)
{
    return [face](AssetSink& sink) { makeSkyFace(sink, face); };
}

// The enemy craft of that name, body and glow. A name with no design fails the run.
Maker enemy(const std::string& name)
{
    for (const EnemyArt& art : enemyArt())
        if (art.name == name)
            return [art](AssetSink& sink) {
                HullPictures pics = renderHull(art.size, art.design, art.lights, art.style);
                sink.picture(art.name, pics.body);
                sink.picture(art.name + "_glow", pics.glow);
            };
    return [name](AssetSink& sink) { sink.fail("no enemy design named " + name); };
}

// The font of that name. A name with no style fails the run.
Maker font(const std::string& name)
{
    for (const FontStyle& style : fontStyles())
        if (name == style.name)
            return [style](AssetSink& sink) { makeFont(sink, style); };
    return [name](AssetSink& sink) { sink.fail("no font style named " + name); };
}

// The picture's name of a file under gfx/ ("title" for gfx/title.png); empty for any other file.
std::string pictureName(const std::string& file)
{
    const size_t affixes = kPictureDir.size() + kPictureExtension.size();
    if (file.size() <= affixes || file.rfind(kPictureDir, 0) != 0 ||
        file.compare(file.size() - kPictureExtension.size(), std::string::npos, kPictureExtension) != 0)
        return "";
    return file.substr(kPictureDir.size(), file.size() - affixes);
}

} // namespace

std::vector<Job> allJobs()
{
    return {
#define ASSET_JOB(maker, ...) {maker, {__VA_ARGS__}},
#include "GeneratedFiles.def"
#undef ASSET_JOB
    };
}

std::vector<std::string> generatedFiles()
{
    std::vector<std::string> files;
    for (const Job& job : allJobs())
        files.insert(files.end(), job.files.begin(), job.files.end());
    return files;
}

std::vector<std::string> generatedPictures()
{
    std::vector<std::string> names;
    for (const std::string& file : generatedFiles())
        if (std::string name = pictureName(file); !name.empty())
            names.push_back(name);
    return names;
}

void runJobs(const std::vector<Job>& jobs, AssetSink& sink, unsigned threads)
{
    std::atomic<size_t> next{0};
    auto worker = [&] {
        for (size_t i = next++; i < jobs.size(); i = next++)
            jobs[i].run(sink);
    };
    std::vector<std::thread> pool;
    for (unsigned t = 0; t < threads; ++t)
        pool.emplace_back(worker);
    for (std::thread& t : pool)
        t.join();

    // The build treats exactly the listed files as the generator's outputs: a file made but
    // not listed would never be made again once deleted, and a listed file not made would
    // make every build run the generator again.
    std::set<std::string> listed;
    for (const Job& job : jobs)
        listed.insert(job.files.begin(), job.files.end());
    const std::set<std::string> written = sink.written();
    for (const std::string& file : listed)
        if (!written.count(file))
            sink.fail(file + " is listed but was not written");
    for (const std::string& file : written)
        if (!listed.count(file))
            sink.fail(file + " was written but is not listed");
}

} // namespace assetgen
