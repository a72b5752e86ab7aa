#pragma once

#include <string>

#include "platform/Export.h"

namespace XMLConfig {

/// A place in a document as people write it: `Section[ID]/Key/Nested` or `Section[ID]/Subsection[ID]/Key`. Identifiers
/// may be left out. In an identifier every character counts as it stands, "/" and "=" too; only "]" is written twice.
struct Address {
    std::wstring section;
    std::wstring sectionID;     ///< empty: the first section of that tag
    std::wstring subSection;    ///< empty: the key stands in the section itself
    std::wstring subSectionID;  ///< only with a subsection
    std::wstring key;           ///< parts joined by "|"; empty: the section or subsection as a whole
};

/// Throws CorvaneParseException, with the address and the place of the fault, for text that is no address; every part must
/// be a legal XML name.
XMLCONFIG_API Address parseAddress(const std::wstring& text);
/// The text that parses into the address.
XMLCONFIG_API std::wstring addressText(const Address& address);

/// `Address=Value`; the value is everything after the first "=" that stands in no identifier.
struct Assignment {
    Address address;
    std::wstring value;
};
/// Throws as parseAddress, and for text without "=".
XMLCONFIG_API Assignment parseAssignment(const std::wstring& text);

}  // namespace XMLConfig
