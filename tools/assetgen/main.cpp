// assetgen: makes every picture, font and the music track of Kelvane.
// Usage: kelvane_assetgen <run dir> [contact sheet path]
// Writes every file of GeneratedFiles.def under the run directory, then the review sheet.
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <thread>

#include "Generator.h"
#include "review/ContactSheet.h"

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s <run dir> [contact sheet path]\n", argv[0]);
        return 2;
    }
    std::string runDir = argv[1];
    mkdir(runDir.c_str(), 0755);
    for (const std::string& file : assetgen::generatedFiles())
        mkdir((runDir + "/" + file.substr(0, file.rfind('/'))).c_str(), 0755);

    assetgen::AssetSink sink(runDir);
    unsigned threads = std::max(2u, std::thread::hardware_concurrency());
    assetgen::runJobs(assetgen::allJobs(), sink, threads);
    if (argc >= 3 && sink.ok())
        assetgen::writeContactSheet(sink, argv[2]);
    return sink.ok() ? 0 : 1;
}
