#include "Generator.h"

#include <atomic>
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

Job enemyJob(const EnemyArt& art)
{
    return {art.name, [art](AssetSink& sink) {
                HullPictures pics = renderHull(art.size, art.design, art.lights, art.style);
                sink.picture(art.name, pics.body);
                sink.picture(art.name + "_glow", pics.glow);
            }};
}

void makeMusic(AssetSink& sink)
{
    if (!writeOggVorbis(sink.runDir() + "/sfx/music1.ogg", renderSong(), kSampleRate, kMusicQuality))
        sink.fail("music1.ogg");
}

} // namespace

std::vector<Job> allJobs()
{
    std::vector<Job> jobs;
    jobs.push_back({"music", makeMusic});
    for (CubeFace face : kCubeFaces)
        jobs.push_back({faceName(face), [face](AssetSink& sink) { makeSkyFace(sink, face); }});
    jobs.push_back({"powerup", makePowerup});
    for (const EnemyArt& art : enemyArt())
        jobs.push_back(enemyJob(art));
    jobs.push_back({"player", makePlayer});
    jobs.push_back({"hud", makeHud});
    jobs.push_back({"title", makeLogo});
    for (const FontStyle& style : fontStyles())
        jobs.push_back({style.name, [style](AssetSink& sink) { makeFont(sink, style); }});
    jobs.push_back({"effects", [](AssetSink& sink) {
                        makeStar(sink);
                        makePlasmaBullet(sink);
                        makeLaser(sink);
                        makeReticle(sink);
                    }});
    return jobs;
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
}

} // namespace assetgen
