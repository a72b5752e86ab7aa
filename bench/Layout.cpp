// Loading an installation and reckoning its layout or checking it, beside loading it.

#include <benchmark/benchmark.h>

#include <cmath>
#include <map>
#include <string>

#include "Sample.h"
#include "Suites.h"
#include "TimedLoads.h"
#include "base/Angles.h"
#include "manager/Check.h"
#include "manager/Layout.h"
#include "sections/ProjectorConfig.h"
#include "sections/ScreenConfig.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

using XMLConfig::detail::pi;

struct Place {
    double yaw = 0.0;
    double pitch = 0.0;
};

/// Spread evenly over the sphere, row by row; the last ones repeat the first where the rows do not come out even.
std::vector<Place> placesOn(int projectors, double spacing) {
    std::vector<Place> places;
    const int rows = static_cast<int>(std::lround(pi / spacing));
    for (int row = 0; row < rows; ++row) {
        const double pitch = pi * (row + 0.5) / rows - pi / 2.0;
        const int columns = std::max(1, static_cast<int>(std::lround(2.0 * pi * std::cos(pitch) / spacing)));
        for (int column = 0; column < columns; ++column) places.push_back({2.0 * pi * column / columns - pi, pitch});
    }
    for (std::size_t i = 0; static_cast<int>(places.size()) < projectors; ++i) places.push_back(places[i]);
    places.resize(static_cast<std::size_t>(projectors));
    return places;
}

/// The sample's projectors as a whole sphere, each overlapping its neighbours by about a fifth.
void arrange(ConfigInfo& document, int projectors) {
    const double spacing = std::sqrt(4.0 * pi / projectors);
    const double half = 0.62 * spacing;
    const std::vector<Place> places = placesOn(projectors, spacing);
    for (int i = 0; i < projectors; ++i) {
        const Place& place = places[static_cast<std::size_t>(i)];
        ProjectorConfig projector(&document, std::to_wstring(i + 1));
        projector.setChannelExtentsFromViewport(Viewport({}, {place.yaw, place.pitch, 0.0}, -half, half, half, -half, 1, 1));
    }
    ScreenConfig screen(&document, nullptr, L"");
    screen.setShape(BaseConfig::SHAPE_SPHERE);
    screen.setRadius(5.0);
    screen.setMinTheta(-pi);
    screen.setMaxTheta(pi);
    screen.setMinPhi(-pi / 2.0);
    screen.setMaxPhi(pi / 2.0);
}

std::wstring arrangedFile(int projectors) {
    static std::map<int, std::wstring> written;
    std::wstring& path = written[projectors];
    if (!path.empty()) return path;
    path = widened(sampleFolder() + "/layout-" + std::to_string(projectors) + ".skorrax");
    ConfigInfo document(widened(sampleFile(projectors)));
    arrange(document, projectors);
    document.save(path);
    return path;
}

void loadOnly(benchmark::State& state, int projectors) {
    const std::wstring path = arrangedFile(projectors);
    timeLoads(state, path);
    state.SetItemsProcessed(state.iterations() * projectors);
}

void loadAndReckon(benchmark::State& state, int projectors) {
    const std::wstring path = arrangedFile(projectors);
    timeLoads(state, path, [&](const ConfigInfo& document) {
        const XMLConfig::Layout layout = XMLConfig::layout(document);
        if (!layout.isComplete() || !layout.coverage || layout.coverage->inNone > 0.05 ||
            layout.pairs.size() < static_cast<std::size_t>(projectors))
            state.SkipWithError("not laid out as expected");
    });
    state.SetItemsProcessed(state.iterations() * projectors);
}

void loadAndCheck(benchmark::State& state, int projectors) {
    const std::wstring path = arrangedFile(projectors);
    timeLoads(state, path, [&](const ConfigInfo& document) {
        if (XMLConfig::check(document).size() < static_cast<std::size_t>(projectors))
            state.SkipWithError("not checked as expected");
    });
    state.SetItemsProcessed(state.iterations() * projectors);
}

}  // namespace

void registerLayout() {
    for (const int projectors : {100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("layout/library/" + size).c_str(), loadAndReckon, projectors);
        benchmark::RegisterBenchmark(("layout/load/" + size).c_str(), loadOnly, projectors);
    }
}

void registerCheck() {
    for (const int projectors : {100, 1000, 10000}) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("check/library/" + size).c_str(), loadAndCheck, projectors);
        benchmark::RegisterBenchmark(("check/load/" + size).c_str(), loadOnly, projectors);
    }
}

}  // namespace bench
