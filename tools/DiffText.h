#pragma once

#include <string>

#include "manager/Diff.h"

class ConfigInfo;

/// A comparison for people and for programs.
namespace tool {

/// What is compared: the names of both files as the command line gave them, and the documents.
struct Compared {
    std::string oldFile;
    std::string newFile;
    const ConfigInfo& oldDocument;
    const ConfigInfo& newDocument;
};

/// One line a difference, and a last one that counts; `all` lists runs, texts of one effect and of one value, too.
std::wstring diffText(const XMLConfig::Difference& difference, const Compared& compared, bool all, bool isColoured);
/// The last line alone.
std::wstring diffStatistics(const XMLConfig::Difference& difference, bool all);
/// The changes as lines "ADDRESS=VALUE" with \n, \t and \\ for line feeds, tabs and backslashes. What no such line can say
/// (gone texts, devices that were renamed or removed) is left out; `leftOut` counts it.
std::wstring diffLines(const XMLConfig::Difference& difference, const Compared& compared, std::size_t& leftOut);
/// One JSON object.
std::wstring diffJson(const XMLConfig::Difference& difference, const Compared& compared);

}  // namespace tool
