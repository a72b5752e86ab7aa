#pragma once

#include <optional>
#include <string>

/// Peak memory of a process that loads one document and does nothing else.
namespace bench {

/// What a child process is started with.
bool isChild(int argumentCount, char** arguments);
int runChild(char** arguments);

/// Bytes above those of a process that loads nothing. To be called before this process has grown: a child inherits the
/// peak of its parent. Throws std::runtime_error.
double peakOfLoading(const std::string& side, const std::string& path);

}  // namespace bench
