#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Setting.h"
#include "tests/support/AccessorReadings.h"

/// Documents that hold what people, other programs and damage leave in them.
namespace XMLConfig::tests {

/// Ordinary and odd texts for a setting of any type, and the setting's own words and numbers as people misspell them.
std::vector<std::wstring> oddTextsFor(const AccessorReading& reading);

const Setting& settingOf(const AccessorReading& reading);
/// The place from which the setting inherits.
Address placeAbove(const AccessorReading& reading);

void store(ConfigInfo& document, const Address& place, const std::wstring& text);
/// A document that has the section around the place, and not the item.
std::unique_ptr<ConfigInfo> documentAround(const AccessorReading& reading);

}  // namespace XMLConfig::tests
