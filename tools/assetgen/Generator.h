// Generator: the table of jobs that make every picture, font and the music track (read from
// GeneratedFiles.def, with the files each job writes), and the worker pool that runs them.
// Each job is independent and deterministic, so the order in which the workers finish them
// never changes a byte of the output.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/AssetSink.h"

namespace assetgen {

// What a job runs: it writes its files through the sink.
using Maker = std::function<void(AssetSink&)>;

struct Job {
    Maker run;
    std::vector<std::string> files;  // what run writes, relative to the run directory
};

// Every job, in table order: the slowest first so the pool finishes early.
std::vector<Job> allJobs();

// Every file the jobs write, relative to the run directory ("gfx/title.png"), in table order.
std::vector<std::string> generatedFiles();

// The names of the pictures among them ("title" for gfx/title.png), in table order.
std::vector<std::string> generatedPictures();

// Runs the jobs on the given number of threads, then fails the sink for every file the jobs
// list but did not write and for every file they wrote but do not list.
void runJobs(const std::vector<Job>& jobs, AssetSink& sink, unsigned threads);

} // namespace assetgen
