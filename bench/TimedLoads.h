#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "store/ConfigInfo.h"

namespace bench {

/// Times loads of the file, each with what `use` does with the document. To free the document does not count.
template <typename Use>
void timeLoads(benchmark::State& state, const std::wstring& path, const Use& use) {
    for ([[maybe_unused]] auto step : state) {
        auto document = std::make_unique<ConfigInfo>(path);
        use(*document);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}
inline void timeLoads(benchmark::State& state, const std::wstring& path) {
    timeLoads(state, path, [](ConfigInfo& /*document*/) {});
}

}  // namespace bench
