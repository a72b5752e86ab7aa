#pragma once

#include <string>
#include <vector>

#include "manager/check/Findings.h"

namespace XMLConfig::detail {

/// A file that a document names.
struct NamedFile {
    Place place;
    std::wstring name;  ///< with "/" between its parts
    bool isThere = false;
    bool isOtherCase = false;  ///< whether one is there whose name differs in the case of letters only
    std::wstring otherCase;    ///< that name
};

/// All files that the document names. A relative name counts from the folder of the document's file.
std::vector<NamedFile> namedFiles(const Findings& findings);

}  // namespace XMLConfig::detail
