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
/// Does what mends the findings, and those that come of it, as --fix wants it. Throws a Refusal where it mends nothing
/// because of an error of the form that stays, and where a mend fails; the document is worth nothing then.
std::vector<Change> mend(ConfigInfo& document, const std::vector<XMLConfig::Finding>& findings, const Request& request,
                         const std::string& file);

}  // namespace tool
