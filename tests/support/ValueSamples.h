#pragma once

#include <string>
#include <vector>

#include "base/Setting.h"
#include "store/Address.h"

/// Values that fit what is known of a setting, and values that do not.
namespace XMLConfig::tests {

struct ValueSamples {
    Setting setting;
    Address place;  ///< of a projector or camera with the ID "a", where it belongs to one
    std::vector<std::wstring> good;
    std::vector<std::wstring> bad;
    std::wstring rule;      ///< that finds a bad value
    bool isWarned = false;  ///< whether a bad value is worth a warning only
};

/// One for each setting, and each part of a record, that has words, named numbers, a range or an angle.
std::vector<ValueSamples> valueSamples();

}  // namespace XMLConfig::tests
