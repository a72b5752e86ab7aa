// One job of a fixed size, for tools that count instructions: a machine that others use too changes its speed, but a job
// takes the same instructions each time. counts.sh runs the jobs and compares them.

#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include "OldSample.h"
#include "Peer.h"
#include "Raw.h"
#include "Sample.h"
#include "manager/Check.h"
#include "manager/Upgrade.h"
#include "store/ConfigInfo.h"

/// What is counted: only what happens in here.
extern "C" __attribute__((noinline, visibility("default"))) void countedJob(const std::function<void()>& job) { job(); }

namespace {

using bench::Address;
using bench::widened;
using Job = std::function<void()>;

std::unique_ptr<ConfigInfo> load(const std::string& file) { return std::make_unique<ConfigInfo>(widened(file)); }

void readAll(const ConfigInfo& document, const std::vector<Address>& addresses) {
    static const std::wstring none;
    std::size_t size = 0;
    for (const Address& at : addresses) size += document.getStringItem(at.section, at.key, none, at.id, none, none).size();
    if (size == 0) throw std::runtime_error("nothing was read");
}

void setAll(ConfigInfo& document, const std::vector<Address>& addresses, const std::vector<std::wstring>& values) {
    static const std::wstring none;
    for (std::size_t i = 0; i < addresses.size(); ++i)
        document.setStringItem(addresses[i].section, addresses[i].key, values[i], addresses[i].id, none, none);
}

// Each makes ready what its job needs. What a job makes lives on, so that its end is not counted.
Job rawLoadOld(int projectors) {
    const std::string file = bench::oldFile(projectors);
    auto kept = std::make_shared<bench::raw::Document>();
    return [=] { *kept = bench::raw::load(file); };
}

Job libraryLoad(int projectors) {
    const std::string file = bench::sampleFile(projectors);
    auto kept = std::make_shared<std::unique_ptr<ConfigInfo>>();
    return [=] { *kept = load(file); };
}

Job librarySave(int projectors) {
    const std::shared_ptr<ConfigInfo> document = load(bench::sampleFile(projectors));
    return [=] { document->save(widened(bench::scratchFile())); };
}

Job firstRead(int projectors) {
    const std::shared_ptr<ConfigInfo> document = load(bench::sampleFile(projectors));
    const auto addresses = bench::addressesOf(projectors);
    return [=] { readAll(*document, addresses); };
}

Job get(int projectors) {
    const Job job = firstRead(projectors);
    job();
    return job;
}

Job set(int projectors) {
    const std::shared_ptr<ConfigInfo> document = load(bench::sampleFile(projectors));
    const auto addresses = bench::addressesOf(projectors);
    readAll(*document, addresses);
    std::vector<std::wstring> values;
    for (const Address& at : addresses) values.push_back(widened(at.item.other));
    return [=] { setAll(*document, addresses, values); };
}

Job upgrade(int projectors) {
    const std::string file = bench::oldFile(projectors);
    auto kept = std::make_shared<std::unique_ptr<ConfigInfo>>();
    return [=] {
        *kept = load(file);
        if (XMLConfig::upgradeDocument(**kept) != XMLConfig::Upgraded) throw std::runtime_error("nothing was upgraded");
    };
}

Job upgradeWithReceipt(int projectors) {
    const std::string file = bench::oldFile(projectors);
    auto kept = std::make_shared<std::unique_ptr<ConfigInfo>>();
    auto receipt = std::make_shared<XMLConfig::UpgradeReceipt>();
    return [=] {
        *kept = load(file);
        XMLConfig::upgradeDocument(**kept, receipt.get());
        if (receipt->steps.empty()) throw std::runtime_error("nothing was upgraded");
    };
}

Job roundTrip(int projectors) {
    const std::string file = bench::sampleFile(projectors);
    const auto addresses = bench::addressesOf(projectors);
    auto kept = std::make_shared<std::unique_ptr<ConfigInfo>>();
    return [=] { *kept = bench::roundTrip(file, addresses, bench::scratchFile()); };
}

Job peerLoad(const bench::Peer& peer, int projectors) {
    const std::string file = bench::sampleFile(projectors);
    auto kept = std::make_shared<std::unique_ptr<bench::PeerDocument>>();
    return [=] { *kept = peer.load(file); };
}

Job peerSave(const bench::Peer& peer, int projectors) {
    const std::shared_ptr<bench::PeerDocument> document = peer.load(bench::sampleFile(projectors));
    return [=] { document->save(bench::scratchFile()); };
}

Job peerGet(const bench::Peer& peer, int projectors) {
    const std::shared_ptr<bench::PeerDocument> document = peer.load(bench::sampleFile(projectors));
    const auto places = bench::namedPlaces(bench::addressesOf(projectors));
    return [=] {
        for (const bench::NamedPlace& place : places)
            if (document->get(place).empty()) throw std::runtime_error("nothing was read");
    };
}

Job peerRoundTrip(const bench::Peer& peer, int projectors) {
    const std::string file = bench::sampleFile(projectors);
    const auto places = bench::namedPlaces(bench::addressesOf(projectors));
    auto kept = std::make_shared<std::unique_ptr<bench::PeerDocument>>();
    return [=] { *kept = bench::roundTrip(peer, file, places, bench::scratchFile()); };
}

/// "raw_load", "pugixml_get" and so on; none where the name begins with no library.
Job ofPeer(const std::string& name, int projectors) {
    for (const bench::Peer& peer : bench::peers()) {
        const std::string beginning = std::string(peer.name) + "_";
        if (name.compare(0, beginning.size(), beginning) != 0) continue;
        const std::string job = name.substr(beginning.size());
        if (job == "load") return peerLoad(peer, projectors);
        if (job == "save") return peerSave(peer, projectors);
        if (job == "get") return peerGet(peer, projectors);
        if (job == "round_trip") return peerRoundTrip(peer, projectors);
    }
    return {};
}

Job check(int projectors) {
    const std::string file = bench::upgradedFile(projectors);
    const std::shared_ptr<ConfigInfo> document = load(file);
    return [=] {
        for (const XMLConfig::Finding& finding : XMLConfig::check(*document))
            if (finding.address.empty()) throw std::runtime_error("a finding without an address");
    };
}

Job named(const std::string& name, int projectors) {
    if (name == "raw_load_old") return rawLoadOld(projectors);
    if (const Job job = ofPeer(name, projectors)) return job;
    if (name == "load") return libraryLoad(projectors);
    if (name == "save") return librarySave(projectors);
    if (name == "get") return get(projectors);
    if (name == "set") return set(projectors);
    if (name == "first_read") return firstRead(projectors);
    if (name == "upgrade") return upgrade(projectors);
    if (name == "upgrade_receipt") return upgradeWithReceipt(projectors);
    if (name == "round_trip") return roundTrip(projectors);
    if (name == "check") return check(projectors);
    throw std::runtime_error("there is no job " + name);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) {
        std::cerr << "usage: xmlconfig_counts JOB PROJECTORS\n";
        return 2;
    }
    int status = 0;
    try {
        const bench::raw::Platform platform;
        const ConfigInfo started(widened(bench::sampleFile(1)));  // the first load makes what every later one uses
        const Job job = named(arguments[1], std::atoi(arguments[2]));
        countedJob(job);
    } catch (const std::exception& error) {
        std::cerr << "xmlconfig_counts: " << error.what() << "\n";
        status = 1;
    }
    bench::removeSamples();
    return status;
}
