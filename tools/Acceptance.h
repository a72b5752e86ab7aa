#pragma once

#include <string>
#include <vector>

#include "manager/Check.h"
#include "store/Address.h"
#include "store/ConfigInfo.h"
#include "tools/Verb.h"

/// Comments that accept findings.
namespace tool {

/// A comment that was written into a section.
struct NewComment {
    XMLConfig::Address section;  ///< empty for the root
    std::wstring text;           ///< without the blanks around it
    std::size_t findings;        ///< how many it accepts
};

/// Throws WrongOperands for a wish to accept that names no rule, gives no reason, or does not mean one file.
void refuseWrongAcceptance(const Request& request);
/// Accepts what is wished: one comment in each section that holds any of it. Throws a Refusal where nothing is found or all
/// of it is accepted already, and CorvaneException for a reason that no comment can hold.
std::vector<NewComment> accept(ConfigInfo& document, const Request& request, XMLConfig::CheckOptions options);
/// A line for each comment, and one with their number.
std::wstring acceptedText(const std::vector<NewComment>& comments, const ConfigInfo& document, const Request& request);

}  // namespace tool
