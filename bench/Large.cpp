// The largest installations, each job in a process of its own: time and memory must grow with the file and no faster.

#include <cstdio>
#include <string>

#include "Memory.h"
#include "OldSample.h"
#include "Sample.h"
#include "Suites.h"

namespace bench {
namespace {

constexpr int common = 10'000;
constexpr int large = 100'000;
constexpr double limit = 1.2;  // of ten times as much

struct LargeJob {
    const char* title;
    const char* job;
    std::string (*file)(int projectors);
};

/// The upgraded installation, written by a child, for this process must stay small.
std::string convertedFile(int projectors) {
    const std::string from = oldFile(projectors);
    static int converted = 0;
    if (converted != projectors) usageOf("convert", from, 1);
    converted = projectors;
    return from + "x";
}

Usage measured(const LargeJob& job, int projectors) { return usageOf(job.job, job.file(projectors), 2); }

bool printRow(const LargeJob& job) {
    const Usage few = measured(job, common);
    const Usage many = measured(job, large);
    constexpr double scale = static_cast<double>(large) / common;
    constexpr double mebibyte = 1024.0 * 1024.0;
    const double time = many.seconds / few.seconds / scale;
    const double memory = many.peak / few.peak / scale;
    const bool isKept = time <= limit && memory <= limit;
    std::printf("%-18s %8.2f s %8.2f s %6.2f %8.0f MiB %8.0f MiB %6.2f  <= %.1f  %s\n", job.title, few.seconds, many.seconds,
                time, few.peak / mebibyte, many.peak / mebibyte, memory, limit, isKept ? "kept" : "MISSED");
    std::fflush(stdout);
    return isKept;
}

}  // namespace

bool measureLarge() {
    const LargeJob jobs[] = {{"load", "library", sampleFile},
                             {"load and save", "save", sampleFile},
                             {"load and upgrade", "upgrade", oldFile},
                             {"load and check", "check", convertedFile},
                             {"load by Xerces-C", "raw", sampleFile}};
    std::printf("%-18s %10s %10s %6s %12s %12s %6s  floor\n", "projectors", "10,000", "100,000", "a one", "10,000",
                "100,000", "a one");
    bool isKept = true;
    for (const LargeJob& job : jobs) isKept = printRow(job) && isKept;
    return isKept;
}

}  // namespace bench
