// Storing items: the mean of all items of a document, each given another value than it holds, in document order.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <string>

#include "Loaded.h"
#include "Suites.h"

namespace bench {
namespace {

/// Both values of an item, ready to be stored.
struct Values {
    explicit Values(const SampleItem& item) {
        const std::array<const char*, 2> forms = {item.text, item.other};
        for (std::size_t i = 0; i < forms.size(); ++i) {
            text[i] = widened(forms[i]);
            rawText[i] = raw::textOf(text[i]);
            if (item.kind == Kind::Integer) integer[i] = std::stoi(forms[i]);
            if (item.kind == Kind::Real) real[i] = std::stod(forms[i]);
            if (item.kind == Kind::Point) std::sscanf(forms[i], "%lf, %lf, %lf", &point[i].x, &point[i].y, &point[i].z);
        }
    }
    std::array<std::wstring, 2> text;
    std::array<raw::Text, 2> rawText;
    std::array<int, 2> integer{};
    std::array<double, 2> real{};
    std::array<Point_3Dim<double>, 2> point;
};

const Values& valuesOf(const SampleItem& item) {
    static std::map<const SampleItem*, Values> values;
    return values.try_emplace(&item, item).first->second;
}

/// Which of the values a document holds, so that every round stores the other.
int& held(const void* document) {
    static std::map<const void*, int> values;
    return values[document];
}

void setOne(ConfigInfo& document, const Address& at, const Values& values, std::size_t which) {
    static const std::wstring none;
    switch (at.item.kind) {
        case Kind::Text:
            document.setStringItem(at.section, at.key, values.text[which], at.id, none, none);
            return;
        case Kind::Integer:
            document.setIntegerItem(at.section, at.key, values.integer[which], at.id);
            return;
        case Kind::Real:
            document.setDoubleItem(at.section, at.key, values.real[which], at.id);
            return;
        case Kind::Point:
            document.setPoint3DItem(at.section, at.key, values.point[which], at.id);
            return;
    }
}

void setLibrary(benchmark::State& state, int projectors) {
    ConfigInfo& document = documentForStoring(projectors);
    std::vector<std::pair<Address, const Values&>> items;
    for (const Address& address : addressesOf(projectors)) items.emplace_back(address, valuesOf(address.item));
    int& which = held(&document);
    for ([[maybe_unused]] auto step : state) {
        which = 1 - which;
        for (const auto& [at, values] : items) setOne(document, at, values, static_cast<std::size_t>(which));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items.size()));
}

void setRaw(benchmark::State& state, int projectors) {
    const xercesc::DOMDocument& document = rawDocumentForStoring(projectors);
    const std::vector<Address> addresses = addressesOf(projectors);
    std::vector<std::pair<raw::Place, const Values&>> items;
    const std::size_t stride = std::max<std::size_t>(1, addresses.size() / 300);
    for (std::size_t i = 0; i < addresses.size(); i += stride)
        items.emplace_back(raw::Place(addresses[i]), valuesOf(addresses[i].item));
    int& which = held(&document);
    for ([[maybe_unused]] auto step : state) {
        which = 1 - which;
        const auto index = static_cast<std::size_t>(which);
        for (const auto& [place, values] : items)
            raw::find(document, place)->getFirstChild()->setNodeValue(values.rawText[index].c_str());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items.size()));
}

}  // namespace

void registerSetting() {
    for (const int projectors : sizes()) {
        const std::string size = std::to_string(projectors);
        benchmark::RegisterBenchmark(("set/library/" + size).c_str(), setLibrary, projectors);
        benchmark::RegisterBenchmark(("set/raw/" + size).c_str(), setRaw, projectors);
    }
}

}  // namespace bench
