#pragma once

#include <optional>
#include <string>

/// What a process of its own takes that does one job and nothing else.
namespace bench {

/// What a child process is started with.
bool isChild(int argumentCount, char** arguments);
int runChild(char** arguments);

struct Usage {
    double seconds = 0.0;  ///< CPU time
    double peak = 0.0;     ///< bytes
};
/// The least of some runs of a job on a file: "library" and "raw" load it; "upgrade", "check" and "save" load it and do
/// that, "save" to the file's name and "x". "convert" upgrades and saves so. Throws std::runtime_error.
Usage usageOf(const std::string& job, const std::string& path, int runs);

/// Bytes above those of a process that loads nothing. To be called before this process has grown: a child inherits the
/// peak of its parent. Throws std::runtime_error.
double peakOfLoading(const std::string& side, const std::string& path);

}  // namespace bench
