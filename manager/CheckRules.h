#pragma once

#include <vector>

#include "base/Setting.h"
#include "manager/Check.h"
#include "platform/Export.h"

namespace XMLConfig {

/// One of the rules by which a document is checked. The texts are one line each, for people.
struct CheckRule {
    const wchar_t* id;         ///< "XC103"
    const wchar_t* name;       ///< "wrong-type"
    const wchar_t* severity;   ///< "error", "warning or note", ...
    const wchar_t* meaning;    ///< a sentence or two
    const wchar_t* looksAt;    ///< settings, as addresses without IDs
    const wchar_t* condition;  ///< what exactly is a fault: "beyond 2 pi"
    const wchar_t* mend;       ///< what mends it; "" where that is not known
    MendSafety safety;         ///< of its mend
};

/// Every rule, in the order of the IDs. The first call makes the list, which then lives as long as the process. May be
/// called from any thread.
XMLCONFIG_API const std::vector<CheckRule>& checkRules();
/// The rule of that ID, one of checkRules(); null for what is no rule's ID.
XMLCONFIG_API const CheckRule* findRule(const std::wstring& id);
/// The rules that look at the setting in particular, in the order of the IDs; those that look at every setting are not among
/// them. The pointers are into checkRules().
XMLCONFIG_API std::vector<const CheckRule*> rulesOf(const Setting& setting);

}  // namespace XMLConfig
