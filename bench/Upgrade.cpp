// Loading with every conversion step, beside Xerces-C's load of the same old file.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "OldSample.h"
#include "Raw.h"
#include "Sample.h"
#include "Suites.h"
#include "manager/Upgrade.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"

namespace bench {
namespace {

void loadOld(benchmark::State& state, int projectors) {
    const std::wstring path = widened(oldFile(projectors));
    for ([[maybe_unused]] auto step : state) {
        std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createFromFile(path));
        if (XMLConfig::upgradeDocument(*document) != XMLConfig::Upgraded) state.SkipWithError("not upgraded");
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * devicesOf(projectors));
}

void loadOldRaw(benchmark::State& state, int projectors) {
    const raw::Platform platform;
    const std::string path = oldFile(projectors);
    for ([[maybe_unused]] auto step : state) {
        raw::Document document = raw::load(path);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * devicesOf(projectors));
}

}  // namespace

void registerUpgrade() {
    for (const int projectors : {100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("upgrade/library/" + size).c_str(), loadOld, projectors);
        benchmark::RegisterBenchmark(("upgrade/raw/" + size).c_str(), loadOldRaw, projectors);
    }
}

}  // namespace bench
