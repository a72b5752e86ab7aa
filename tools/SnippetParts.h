#pragma once

#include <cstddef>
#include <string>

#include "store/Address.h"

/// Single texts in a device snippet, as `show --flat` and `diff --lines` name them.
namespace tool {

/// Where an address has the wanted character outside of its brackets for the first time; npos where it has it nowhere there.
/// In brackets "]]" stands for a "]" of the ID. The search goes on from `begin`, which is a place outside of the brackets.
std::size_t findOutsideIDs(const std::wstring& text, wchar_t wanted, std::size_t begin = 0);

/// An operand's place, and the part of the device snippet that stands there: "device@UID", "device/connection/port".
struct SnippetPart {
    std::wstring snippet;  ///< the address of the snippet; empty for an operand that names no part of one
    std::wstring part;
};
SnippetPart snippetPartOf(const std::wstring& address);

/// The address of a whole setting or group, for verbs that take no part of a device snippet; throws WrongOperands for one.
XMLConfig::Address wholeAddressOf(const std::string& operand);

/// The snippet's XML with the part holding the value; throws a Refusal, without the address, where it
/// holds no such part, or the part holds others.
std::wstring withPart(const std::wstring& xml, const std::wstring& part, const std::wstring& value);
/// The part's text; throws as withPart.
std::wstring partIn(const std::wstring& xml, const std::wstring& part);

}  // namespace tool
