#include "Memory.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "Raw.h"
#include "Sample.h"
#include "manager/Check.h"
#include "manager/Upgrade.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

constexpr const char* childMark = "--load-and-end";

double secondsOf(const timeval& time) { return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec); }

Usage usageOfChild(const char* job, const char* path) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start a child process");
    if (child == 0) {
        execl("/proc/self/exe", "xmlconfig_bench", childMark, job, path, static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error(std::string("the child process failed to ") + job + " " + path);
    return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime), 1024.0 * static_cast<double>(usage.ru_maxrss)};
}

bool hasProjector(const ConfigInfo& document) { return !document.getSectionIDs(L"Projector").empty(); }

bool load(const std::string& path) { return hasProjector(ConfigInfo(widened(path))); }

bool loadRaw(const std::string& path) {
    const raw::Platform platform;
    return raw::load(path) != nullptr;
}

bool upgrade(const std::string& path) {
    ConfigInfo document(widened(path));
    return XMLConfig::upgradeDocument(document) == XMLConfig::Upgraded && hasProjector(document);
}

bool convert(const std::string& path) {
    ConfigInfo document(widened(path));
    const bool isUpgraded = XMLConfig::upgradeDocument(document) == XMLConfig::Upgraded;
    document.save(widened(path + "x"));
    return isUpgraded;
}

bool check(const std::string& path) {
    const ConfigInfo document(widened(path));
    return !XMLConfig::check(document).empty();
}

bool save(const std::string& path) {
    ConfigInfo document(widened(path));
    document.save(widened(path + "x"));
    return true;
}

struct ChildJob {
    const char* name;
    bool (*run)(const std::string& path);
};
constexpr ChildJob childJobs[] = {{"nothing", [](const std::string&) { return true; }},
                                  {"library", load},
                                  {"raw", loadRaw},
                                  {"upgrade", upgrade},
                                  {"convert", convert},
                                  {"check", check},
                                  {"save", save}};

}  // namespace

bool isChild(int argumentCount, char** arguments) { return argumentCount == 4 && std::strcmp(arguments[1], childMark) == 0; }

int runChild(char** arguments) {
    for (const ChildJob& job : childJobs)
        if (std::strcmp(job.name, arguments[2]) == 0) return job.run(arguments[3]) ? 0 : 1;
    return 1;
}

/// Takes the least of several runs: other programs can only add time and memory.
Usage usageOf(const std::string& job, const std::string& path, int runs) {
    Usage least = usageOfChild(job.c_str(), path.c_str());
    for (int run = 1; run < runs; ++run) {
        const Usage next = usageOfChild(job.c_str(), path.c_str());
        least = {std::min(least.seconds, next.seconds), std::min(least.peak, next.peak)};
    }
    return least;
}

double peakOfLoading(const std::string& side, const std::string& path) {
    constexpr int runs = 3;
    static const double idle = usageOf("nothing", path, runs).peak;
    return usageOf(side, path, runs).peak - idle;
}

}  // namespace bench
