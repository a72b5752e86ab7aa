#include "Memory.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "Raw.h"
#include "Sample.h"
#include "store/ConfigInfo.h"

namespace bench {
namespace {

constexpr const char* childMark = "--load-and-end";

/// The least of a few runs: what else the machine does can only add pages.
double peakOfChild(const char* side, const char* path) {
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("cannot start a child process");
    if (child == 0) {
        execl("/proc/self/exe", "xmlconfig_bench", childMark, side, path, static_cast<char*>(nullptr));
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error(std::string("the child process did not load ") + path);
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

double leastPeak(const char* side, const char* path) {
    double least = peakOfChild(side, path);
    for (int run = 1; run < 3; ++run) least = std::min(least, peakOfChild(side, path));
    return least;
}

}  // namespace

bool isChild(int argumentCount, char** arguments) { return argumentCount == 4 && std::strcmp(arguments[1], childMark) == 0; }

int runChild(char** arguments) {
    const std::string side = arguments[2];
    if (side == "library") {
        const ConfigInfo document(widened(arguments[3]));
        return document.doesSectionExist(L"Projector", L"1") ? 0 : 1;
    }
    if (side == "raw") {
        const raw::Platform platform;
        return raw::load(arguments[3]) ? 0 : 1;
    }
    return 0;
}

double peakOfLoading(const std::string& side, const std::string& path) {
    static const double idle = leastPeak("nothing", path.c_str());
    return leastPeak(side.c_str(), path.c_str()) - idle;
}

}  // namespace bench
