#pragma once

#include <optional>
#include <string>

#include "base/Setting.h"

/// Values as people write them, and what is wrong with them.
namespace tool {

/// The text to store for what was written: numbers with a unit that the setting can have ("-67.5deg", "1.2rad", "17ft",
/// "5.2m", "340mm", "12in", "25%") are converted to the stored one, and one int or double gets the form in which the library
/// stores it. Everything else stays as it is.
std::wstring storedForm(const std::wstring& written, const XMLConfig::Setting& setting);

/// Why a value should not be stored.
struct ValueFault {
    std::wstring message;      ///< without the address
    bool isWarning = false;    ///< worth telling, but no refusal
    bool offersForce = false;  ///< whether the message should name --force
};
/// What is wrong with a text that is to be stored, told in the numbers and units that were written; nothing where it is in
/// order.
std::optional<ValueFault> faultOf(const std::wstring& written, const XMLConfig::Setting& setting);

}  // namespace tool
