// Loading a configuration and reading one value of it, as a technician asks for one, beside loading it.

#include <benchmark/benchmark.h>

#include <string>

#include "Sample.h"
#include "Suites.h"
#include "TimedLoads.h"
#include "manager/Origin.h"
#include "manager/Selector.h"
#include "manager/SettingSearch.h"
#include "store/Address.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

void loadOnly(benchmark::State& state, int projectors) {
    const std::wstring path = widened(sampleFile(projectors));
    timeLoads(state, path);
    state.SetItemsProcessed(state.iterations() * projectors);
}

/// Everything that the tool asks for one value: the file's version, the device, what is stored and what counts.
std::wstring valueAt(const ConfigInfo& document, const std::wstring& address) {
    if (document.getVersion() <= 0.0) return L"";
    const XMLConfig::Selection selection = XMLConfig::select(document, XMLConfig::parseAddress(address));
    if (selection.places.size() != 1 || XMLConfig::knownSetting(selection.places[0]) == nullptr) return L"";
    const XMLConfig::ElementView element = XMLConfig::findElement(document, selection.places[0]);
    const auto counted = XMLConfig::effectiveValue(document, selection.places[0]);
    return counted && counted->stored == element.text() ? counted->text : L"";
}

/// The middle projector's value.
void loadAndGet(benchmark::State& state, int projectors) {
    const std::wstring path = widened(sampleFile(projectors));
    const std::wstring address = L"Projector[" + std::to_wstring(projectors / 2) + L"]/Gamma";
    timeLoads(state, path, [&](const ConfigInfo& document) {
        if (valueAt(document, address).empty()) state.SkipWithError("no value was read");
    });
    state.SetItemsProcessed(state.iterations() * projectors);
}

}  // namespace

void registerReading() {
    for (const int projectors : {4, 100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("read_one/library/" + size).c_str(), loadAndGet, projectors);
        benchmark::RegisterBenchmark(("read_one/load/" + size).c_str(), loadOnly, projectors);
    }
}

}  // namespace bench
