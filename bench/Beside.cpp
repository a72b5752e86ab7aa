// The jobs of a user beside other XML libraries: load, save, get by name, and the whole way from file to file.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <string>

#include "Peer.h"
#include "Sample.h"
#include "Suites.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

void loadPeer(benchmark::State& state, const Peer& peer, int projectors) {
    const std::string path = sampleFile(projectors);
    for ([[maybe_unused]] auto step : state) {
        std::unique_ptr<PeerDocument> document = peer.load(path);
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
}

void savePeer(benchmark::State& state, const Peer& peer, int projectors) {
    const std::unique_ptr<PeerDocument> document = peer.load(sampleFile(projectors));
    const std::string path = scratchFile();
    for ([[maybe_unused]] auto step : state) document->save(path);
}

/// The walk takes so long in a large document that items at equal distances stand for all.
void getPeer(benchmark::State& state, const Peer& peer, int projectors) {
    const std::unique_ptr<PeerDocument> document = peer.load(sampleFile(projectors));
    const std::vector<Address> addresses = addressesOf(projectors);
    std::vector<NamedPlace> places;
    for (std::size_t i = 0; i < addresses.size(); i += std::max<std::size_t>(1, addresses.size() / 300))
        places.emplace_back(addresses[i]);
    for ([[maybe_unused]] auto step : state)
        for (const NamedPlace& place : places) benchmark::DoNotOptimize(document->get(place));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(places.size()));
}

void roundTripPeer(benchmark::State& state, const Peer& peer, int projectors) {
    const std::vector<NamedPlace> places = namedPlaces(addressesOf(projectors));
    for ([[maybe_unused]] auto step : state) roundTrip(peer, sampleFile(projectors), places, scratchFile());
}

void roundTripLibrary(benchmark::State& state, int projectors) {
    const std::vector<Address> addresses = addressesOf(projectors);
    for ([[maybe_unused]] auto step : state) roundTrip(sampleFile(projectors), addresses, scratchFile());
}

}  // namespace

void registerBeside() {
    for (const int projectors : sizes()) {
        const std::string size = "/" + std::to_string(projectors);
        for (const Peer& peer : peers()) {
            const auto add = [&](const char* job, auto function) {
                benchmark::RegisterBenchmark((std::string(job) + "/" + peer.name + size).c_str(), function, peer,
                                             projectors);
            };
            // What Documents and Getting measure of Xerces-C keeps each conversion of a name out of the time.
            const bool isMeasured = std::string(peer.name) == "raw";
            if (!isMeasured) add("load", loadPeer);
            if (!isMeasured) add("save", savePeer);
            if (!isMeasured) add("get", getPeer);
            // A walk for each item takes a minute at 10,000.
            if (projectors <= 1000) add("round_trip", roundTripPeer);
        }
        if (projectors <= 1000)
            benchmark::RegisterBenchmark(("round_trip/library" + size).c_str(), roundTripLibrary, projectors);
    }
}

}  // namespace bench
