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
    std::wstring otherCase;  ///< the name of one that is there and differs in the case of letters only; "" where none is
};

/// All files that the document names. A relative name counts from the folder of the document's file.
std::vector<NamedFile> namedFiles(const Findings& findings);

}  // namespace XMLConfig::detail
