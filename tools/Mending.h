#pragma once

#include <string>
#include <vector>

#include "manager/Check.h"
#include "store/ConfigInfo.h"
#include "tools/Changes.h"
#include "tools/Verb.h"

/// Doing what mends findings.
namespace tool {

/// Whether --fix alone mends it.
bool isMendedByFix(const XMLConfig::Finding& finding);
/// Whether it is an error of the document's form, beside which nothing is mended.
bool forbidsMending(const XMLConfig::Finding& finding);

/// Throws WrongOperands for a --fix that names no rule, or that cannot be for the operands.
void refuseWrongFix(const Request& request);
/// Applies the mends that --fix asks for, and those of the findings that follow from them. Throws a Refusal where an error
/// of the form stays, beside which nothing is mended, and where a mend fails. After a Refusal the document must not be used.
std::vector<Change> mend(ConfigInfo& document, const std::vector<XMLConfig::Finding>& findings, const Request& request,
                         const std::string& file);

}  // namespace tool
