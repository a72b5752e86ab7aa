#pragma once

#include <optional>
#include <string>

#include "base/Setting.h"
#include "platform/Export.h"
#include "store/Address.h"
#include "store/ElementView.h"

/// What the application reads at a place of a document, and where that comes from.
namespace XMLConfig {

/// Where a value comes from.
enum class Origin {
    Stored,     ///< the place itself holds it
    Inherited,  ///< the section that the setting inherits from holds it
    Default     ///< no file holds it
};

/// The origin's name: "stored", "inherited" or "default".
XMLCONFIG_API const wchar_t* nameOf(Origin origin);

/// A value as the application reads it. The view borrows the document: use it no more when that has changed or ended.
struct EffectiveValue {
    Origin origin = Origin::Default;
    Address from;         ///< where it stands; without meaning for a default
    ElementView element;  ///< what holds it; a view of no element for a default
    std::wstring stored;  ///< the text as it stands there
    std::wstring text;    ///< what the application makes of it, in the form in which the library would store that
};

/// What the application reads at the address, as the accessor of the setting gives it: its own text, else that of the
/// section that the setting inherits from, else the setting's default, which for some is worked out from other settings. A
/// text that cannot be read as the setting's type (no truth value, a point with too few or too many numbers) gives the
/// default, whatever could be inherited. Lists and tables are in the form in which the library would store what it read of
/// them. Elements in the place of a value count with the text in them. Nothing for a place that neither the catalogue nor
/// the document knows, and for groups of settings, records and XML elements that are stored.
XMLCONFIG_API std::optional<EffectiveValue> effectiveValue(const ConfigInfo& document, const Address& address);

/// What the application makes of a stored text, in the form in which the library would store it: "2,2" for a double is
/// "2.000000000000000e+00". Texts of other types than truth values, numbers and points stay as they are. Nothing for a text
/// that counts as missing.
XMLCONFIG_API std::optional<std::wstring> textAsRead(const std::wstring& stored, SettingType type);
/// The same for one setting: a word or number that is none of the setting's own is what the accessor takes it for.
XMLCONFIG_API std::optional<std::wstring> textAsRead(const std::wstring& stored, const Setting& setting);

}  // namespace XMLConfig
