#pragma once

#include <optional>
#include <string>
#include <vector>

#include "manager/Check.h"
#include "tools/Acceptance.h"
#include "tools/Changes.h"
#include "tools/Showing.h"

/// Findings for people and for programs.
namespace tool {

/// What the check of one file gave.
struct CheckedFile {
    struct LocatedFinding {
        XMLConfig::Finding finding;
        std::optional<unsigned long long> line;
        std::vector<std::optional<unsigned long long>> otherLines;  ///< of the finding's places
    };
    std::string file;
    std::wstring fault;  ///< why it could not be read; "" where it was
    double version = 0.0;
    std::optional<bool> isWritten;  ///< whether what was to be changed is in the file now; nothing where nothing was
    bool isRefused = false;         ///< what was to be changed
    std::optional<std::vector<Change>> changes;  ///< by --fix
    std::vector<NewComment> comments;            ///< that were added
    std::size_t acceptedFindings = 0;            ///< how many more there are that comments accept
    std::vector<LocatedFinding> findings;

    [[nodiscard]] std::size_t count(XMLConfig::Severity severity) const;
};

/// A line a finding, and one for each rule that is found more than three times with the same words; then the counts.
std::wstring checkText(const CheckedFile& checked, const Showing& showing, bool isColoured);
/// One object about all files.
std::wstring checkJson(const std::vector<CheckedFile>& checked, int exitStatus);
/// A finding without its file: "warning[XC305] Projector[Dome 1]/...: message".
std::wstring findingText(const XMLConfig::Finding& finding, const Showing& showing, bool isColoured);
/// The message, with the line of the other place where it speaks of one.
std::wstring messageOf(const CheckedFile::LocatedFinding& located);

}  // namespace tool
