#pragma once

#include <string>
#include <utility>
#include <vector>

class ConfigInfo;

namespace XMLConfig::detail {

/// An element that is to be stored, told without XML text and without a document. Its text stands before its children.
struct StoredElement {
    std::wstring name;
    std::vector<std::pair<std::wstring, std::wstring>> attributes;  ///< name and value
    std::wstring text;
    std::vector<StoredElement> children;
};

/// The XML text of the element.
std::wstring xmlOf(const StoredElement& element);
/// Stores the element as ConfigInfo::setStringItemAsDOMElement stores its XML text, with the same outcome, but parses
/// it only where a parser would refuse or change a part of it. Names must be legal and without a prefix, and no attribute
/// may be given twice.
void setElementItem(ConfigInfo& document, const std::wstring& sectionName, const std::wstring& key,
                    const StoredElement& element, const std::wstring& sectionID);

}  // namespace XMLConfig::detail
