// Reading items: the mean of all items of one kind, read in document order.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>
#include <string>

#include "Loaded.h"
#include "Suites.h"

namespace bench {
namespace {

/// Which items are read.
struct Choice {
    const char* name;
    bool everyKind;
    Kind kind;
    bool deep;
    [[nodiscard]] bool takes(const Address& address) const {
        return everyKind || (address.item.kind == kind && address.isDeep() == deep);
    }
};

constexpr Choice choices[] = {
    {"get", true, Kind::Text, false},
    {"get_text_flat", false, Kind::Text, false},
    {"get_text_deep", false, Kind::Text, true},
    {"get_int_flat", false, Kind::Integer, false},
    {"get_int_deep", false, Kind::Integer, true},
    {"get_double_flat", false, Kind::Real, false},
    {"get_double_deep", false, Kind::Real, true},
    {"get_point_flat", false, Kind::Point, false},
    {"get_point_deep", false, Kind::Point, true},
};

std::vector<Address> chosen(const Choice& choice, int projectors) {
    std::vector<Address> addresses;
    for (const Address& address : addressesOf(projectors))
        if (choice.takes(address)) addresses.push_back(address);
    return addresses;
}

void getOne(const ConfigInfo& document, const Address& at) {
    static const std::wstring none;
    static const Point_3Dim<double> origin;
    switch (at.item.kind) {
        case Kind::Text:
            benchmark::DoNotOptimize(document.getStringItem(at.section, at.key, none, at.id, none, none));
            return;
        case Kind::Integer:
            benchmark::DoNotOptimize(document.getIntegerItem(at.section, at.key, 0, at.id));
            return;
        case Kind::Real:
            benchmark::DoNotOptimize(document.getDoubleItem(at.section, at.key, 0.0, at.id));
            return;
        case Kind::Point:
            benchmark::DoNotOptimize(document.getPoint3DItem(at.section, at.key, origin, at.id));
            return;
    }
}

void getLibrary(benchmark::State& state, const Choice& choice, int projectors) {
    const ConfigInfo& document = loadedDocument(projectors);
    const std::vector<Address> addresses = chosen(choice, projectors);
    for ([[maybe_unused]] auto step : state)
        for (const Address& address : addresses) getOne(document, address);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(addresses.size()));
}

/// The walk takes so long in a large document that items at equal distances stand for all.
void getRaw(benchmark::State& state, const Choice& choice, int projectors) {
    const xercesc::DOMDocument& document = loadedRawDocument(projectors);
    const std::vector<Address> addresses = chosen(choice, projectors);
    const std::size_t stride = std::max<std::size_t>(1, addresses.size() / 300);
    std::vector<raw::Place> places;
    for (std::size_t i = 0; i < addresses.size(); i += stride) places.emplace_back(addresses[i]);
    for ([[maybe_unused]] auto step : state)
        for (const raw::Place& place : places) benchmark::DoNotOptimize(raw::find(document, place)->getTextContent());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(places.size()));
}

}  // namespace

void registerGetting() {
    for (const Choice& choice : choices)
        for (const int projectors : sizes()) {
            const std::string size = std::to_string(projectors);
            const std::string name = choice.name;
            benchmark::RegisterBenchmark((name + "/library/" + size).c_str(), getLibrary, choice, projectors);
            benchmark::RegisterBenchmark((name + "/raw/" + size).c_str(), getRaw, choice, projectors);
        }
}

}  // namespace bench
