// Loading with every conversion step, beside loading the same installation when nothing is left to convert.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "OldSample.h"
#include "Sample.h"
#include "Suites.h"
#include "manager/Upgrade.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"

namespace bench {
namespace {

void load(benchmark::State& state, const std::string& file, XMLConfig::VersionUpgradeEnum expected, int devices) {
    const std::wstring path = widened(file);
    for ([[maybe_unused]] auto step : state) {
        std::unique_ptr<ConfigInfo> document(ConfigInfoFactory::getInstance()->createFromFile(path));
        if (XMLConfig::upgradeDocument(*document) != expected) state.SkipWithError("not upgraded as expected");
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * devices);
}

void loadOld(benchmark::State& state, int projectors) {
    load(state, oldFile(projectors), XMLConfig::Upgraded, devicesOf(projectors));
}

void loadUpgraded(benchmark::State& state, int projectors) {
    load(state, upgradedFile(projectors), XMLConfig::NoUpgradeRequired, devicesOf(projectors));
}

}  // namespace

void registerUpgrade() {
    for (const int projectors : {100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("upgrade/library/" + size).c_str(), loadOld, projectors);
        benchmark::RegisterBenchmark(("upgrade/current/" + size).c_str(), loadUpgraded, projectors);
    }
}

}  // namespace bench
