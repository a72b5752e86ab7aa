#pragma once

#include <string>

#include "store/Outline.h"

class ConfigInfo;

namespace XMLConfig::detail {

/// The XML text of an element whose text stands before its children.
std::wstring xmlOf(const OutlineNode& element);
/// Stores such an element as ConfigInfo::setStringItemAsDOMElement stores its XML text, with the same outcome, but parses
/// it only where a parser would refuse or change a part of it. Names must be legal and without a prefix, and no attribute
/// may be given twice.
void setElementItem(ConfigInfo& document, const std::wstring& sectionName, const std::wstring& key,
                    const OutlineNode& element, const std::wstring& sectionID);

}  // namespace XMLConfig::detail
