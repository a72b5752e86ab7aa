#pragma once

#include <string>
#include <vector>

#include "manager/CheckRules.h"
#include "tools/Json.h"

/// The rules of a check, as describe tells of them.
namespace tool {

using Rules = std::vector<const XMLConfig::CheckRule*>;

/// The rule of that ID, whatever the case of its letters; null for what is no rule's ID.
const XMLConfig::CheckRule* ruleNamed(const std::wstring& id);
/// The ID of that rule as the library writes it. Throws WrongOperands for what is no rule's.
std::wstring ruleIDOf(const std::string& word);
/// Whether a text is spelt as the ID of a rule, or as the beginning of one: "XC1".
bool isStartOfRuleIDs(const std::wstring& word);
/// The rules whose IDs begin so, whatever the case of the letters.
Rules rulesBeginning(const std::wstring& word);
/// The rules whose name, meaning or condition holds the word, whatever the case of its letters.
Rules rulesAbout(const std::wstring& word);
/// What is to be known of a rule, in several lines.
std::wstring ruleText(const XMLConfig::CheckRule& rule);
/// "XC301, XC311"; "" for none.
std::wstring ruleIDs(const Rules& rules);
Json ruleIDsJson(const Rules& rules);
Json ruleJson(const XMLConfig::CheckRule& rule);

}  // namespace tool
