#pragma once

#include <string>
#include <vector>

#include "base/Setting.h"
#include "tools/RuleText.h"

namespace tool {

/// What an operand of describe asks for.
struct Topic {
    std::wstring asked;
    std::vector<XMLConfig::Setting> settings;
    Rules rules;
};

/// "Geometry/Box_Size"
std::wstring addressOf(const XMLConfig::Setting& setting);
/// The answer about all of them.
std::wstring describeJson(const std::vector<Topic>& topics);

}  // namespace tool
