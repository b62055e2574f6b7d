// Generator: the list of jobs that make every picture, font and the music track, and the
// worker pool that runs them. Each job is independent and deterministic, so the order in
// which the workers finish them never changes a byte of the output.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/AssetSink.h"

namespace assetgen {

struct Job {
    std::string what;
    std::function<void(AssetSink&)> run;
};

// Every job, the slowest first so the pool finishes early.
std::vector<Job> allJobs();

// Runs the jobs on the given number of threads.
void runJobs(const std::vector<Job>& jobs, AssetSink& sink, unsigned threads);

} // namespace assetgen
