// Measures the library beside raw Xerces-C doing the same work in the same run. Options of Google Benchmark are taken.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "Loaded.h"
#include "Memory.h"
#include "Sample.h"
#include "Suites.h"
#include "Table.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

/// Everything is measured once a round. A machine that others use too changes its speed every few seconds, by a half and
/// more; what the table compares is therefore measured one after the other, and each round gives a ratio of its own.
int rounds = 11;

constexpr const char* roundsOption = "--rounds=";

/// Takes --rounds=N from the options.
void takeRounds(std::vector<std::string>& options) {
    const auto isIt = [](const std::string& option) { return option.rfind(roundsOption, 0) == 0; };
    const auto found = std::find_if(options.begin(), options.end(), isIt);
    if (found == options.end()) return;
    rounds = std::max(1, std::atoi(found->c_str() + std::strlen(roundsOption)));
    options.erase(found);
}

/// What the table needs, before the caller's own options, which win.
std::vector<std::string> withDefaults(int argumentCount, char** arguments) {
    std::vector<std::string> all = {arguments[0], "--benchmark_min_time=0.05"};
    all.insert(all.end(), arguments + 1, arguments + argumentCount);
    return all;
}

/// Google Benchmark keeps pointers into the options.
bool initialize(std::vector<std::string>& options) {
    std::vector<char*> pointers;
    pointers.reserve(options.size());
    for (std::string& option : options) pointers.push_back(option.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

void measureMemory(bench::Table& table) {
    for (const int projectors : bench::sizes())
        for (const char* side : {"library", "raw"})
            table.add(std::string("peak_memory/") + side + "/" + std::to_string(projectors),
                      bench::peakOfLoading(side, bench::sampleFile(projectors)));
}

/// What a job frees stays with the process, whichever library did the job. Else the C library gives it back to the system
/// where the heap happens to end in it, and the next load takes up to twice as long to get it again.
void keepFreedMemory() {
#if defined(__GLIBC__)
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, -1);  // never
#endif
}

int measure() {
    bench::Table table;
    measureMemory(table);
    keepFreedMemory();
    bench::registerDocuments();
    bench::registerGetting();
    bench::registerSetting();
    bench::registerBeside();
    bench::registerAccessors();
    bench::registerUpgrade();
    bench::registerReading();
    bench::registerLayout();
    bench::registerCheck();
    bench::registerDiff();
    std::cerr << "measuring takes a few minutes\n";
    for (int round = 0; round < rounds; ++round) benchmark::RunSpecifiedBenchmarks(&table);
    bench::releaseLoadedDocuments();
    bench::releaseAccessors();
    return table.print() ? 0 : 1;
}

int measureLarge() {
    const bool isKept = bench::measureLarge();
    bench::removeSamples();
    return isKept ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    try {
        if (bench::isChild(argumentCount, arguments)) return bench::runChild(arguments);
        if (argumentCount == 2 && std::strcmp(arguments[1], "--large") == 0) return measureLarge();
        std::vector<std::string> options = withDefaults(argumentCount, arguments);
        takeRounds(options);
        if (!initialize(options)) return 2;
        const int status = measure();
        bench::removeSamples();
        return status;
    } catch (const std::exception& error) {
        std::cerr << "xmlconfig_bench: " << error.what() << "\n";
        bench::removeSamples();
        return 1;
    }
}
