#pragma once

#include <string>

namespace tool {

/// What is to be known of the rule of that ID, whatever the case of its letters; "" for what is no rule's ID.
std::wstring ruleText(const std::wstring& id);

}  // namespace tool
