// Whole documents: loading, saving, opening and closing.

#include <benchmark/benchmark.h>

#include <string>

#include "Raw.h"
#include "Suites.h"
#include "TimedLoads.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

/// Gives a file of about 25 KB.
constexpr int smallDocument = 6;

void loadLibrary(benchmark::State& state, int projectors) {
    const std::wstring path = widened(sampleFile(projectors));
    timeLoads(state, path);
}

void loadRaw(benchmark::State& state, int projectors) {
    const raw::Platform platform;
    const std::string path = sampleFile(projectors);
    for ([[maybe_unused]] auto step : state) {
        raw::Document document = raw::load(path);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}

void saveLibrary(benchmark::State& state, int projectors) {
    ConfigInfo document(widened(sampleFile(projectors)));
    const std::wstring path = widened(scratchFile());
    for ([[maybe_unused]] auto step : state) document.save(path);
}

void saveRaw(benchmark::State& state, int projectors) {
    const raw::Platform platform;
    const raw::Document document = raw::load(sampleFile(projectors));
    const std::string path = scratchFile();
    for ([[maybe_unused]] auto step : state) raw::save(*document, path);
}

void openAndCloseLibrary(benchmark::State& state) {
    const std::wstring path = widened(sampleFile(smallDocument));
    for ([[maybe_unused]] auto step : state) ConfigInfo document(path);
}

void parseRaw(benchmark::State& state) {
    const raw::Platform platform;
    const std::string path = sampleFile(smallDocument);
    for ([[maybe_unused]] auto step : state) benchmark::DoNotOptimize(raw::load(path).get());
}

}  // namespace

void registerDocuments() {
    for (const int projectors : sizes()) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("load/library/" + size).c_str(), loadLibrary, projectors);
        benchmark::RegisterBenchmark(("load/raw/" + size).c_str(), loadRaw, projectors);
        benchmark::RegisterBenchmark(("save/library/" + size).c_str(), saveLibrary, projectors);
        benchmark::RegisterBenchmark(("save/raw/" + size).c_str(), saveRaw, projectors);
    }
    const std::string size = std::to_string(smallDocument);
    benchmark::RegisterBenchmark(("open_close/library/" + size).c_str(), openAndCloseLibrary);
    benchmark::RegisterBenchmark(("open_close/raw/" + size).c_str(), parseRaw);
}

}  // namespace bench
