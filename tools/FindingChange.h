#pragma once

#include <string>
#include <vector>

#include "manager/Check.h"
#include "tools/Json.h"
#include "tools/Showing.h"

/// What a change of a document does to its findings.
namespace tool {

/// What a check finds without a look at the files that the document names. Good for as long as the caller likes: the views
/// of elements are empty.
std::vector<XMLConfig::Finding> findingsOf(const ConfigInfo& document, const std::string& file);

/// The findings of two states of a document, apart. Two are the same when rule, address and message are.
struct FindingChange {
    std::vector<XMLConfig::Finding> fresh;   ///< those that only the later state has, errors first
    std::vector<XMLConfig::Finding> solved;  ///< those that only the earlier state has
    /// How many new errors stand where the same rule found no error before.
    std::size_t newErrors = 0;
};
FindingChange compareFindings(const std::vector<XMLConfig::Finding>& before, const std::vector<XMLConfig::Finding>& after);

/// ", 1 new finding, 2 solved (XC408, XC901)".
std::wstring findingCounts(const FindingChange& change);
/// One line for each finding.
std::wstring findingLines(const std::vector<XMLConfig::Finding>& findings, const Showing& showing, bool isColoured);
/// The new errors, a line each without a line feed at the end.
std::wstring errorLines(const FindingChange& change, const Showing& showing);
/// An array with rule, name, severity, address and message of each.
Json jsonOf(const std::vector<XMLConfig::Finding>& findings);

}  // namespace tool
