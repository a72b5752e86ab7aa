// Loading two configurations and comparing them, beside loading one.

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

#include "Sample.h"
#include "Suites.h"
#include "TimedLoads.h"
#include "manager/Diff.h"
#include "sections/ProjectorConfig.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

constexpr int changedEvery = 10;

/// The sample with another gamma at every tenth projector.
std::wstring changedFile(int projectors) {
    static std::map<int, std::wstring> written;
    std::wstring& path = written[projectors];
    if (!path.empty()) return path;
    path = widened(sampleFolder() + "/changed-" + std::to_string(projectors) + ".skorrax");
    ConfigInfo document(widened(sampleFile(projectors)));
    for (int i = changedEvery; i <= projectors; i += changedEvery)
        ProjectorConfig(&document, std::to_wstring(i)).setGamma(3.75);
    document.save(path);
    return path;
}

void loadOnly(benchmark::State& state, int projectors) {
    const std::wstring path = widened(sampleFile(projectors));
    timeLoads(state, path);
    state.SetItemsProcessed(state.iterations() * projectors);
}

void loadTwoAndCompare(benchmark::State& state, int projectors) {
    const std::wstring oldPath = widened(sampleFile(projectors));
    const std::wstring newPath = changedFile(projectors);
    for ([[maybe_unused]] auto step : state) {
        auto oldDocument = std::make_unique<ConfigInfo>(oldPath);
        auto newDocument = std::make_unique<ConfigInfo>(newPath);
        const XMLConfig::Difference difference = XMLConfig::diff(*oldDocument, *newDocument);
        if (difference.changed.size() != static_cast<std::size_t>(projectors / changedEvery))
            state.SkipWithError("not the differences that were made");
        state.PauseTiming();
        oldDocument.reset();
        newDocument.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * projectors);
}

}  // namespace

void registerDiff() {
    for (const int projectors : {100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("diff/library/" + size).c_str(), loadTwoAndCompare, projectors);
        benchmark::RegisterBenchmark(("diff/load/" + size).c_str(), loadOnly, projectors);
    }
}

}  // namespace bench
