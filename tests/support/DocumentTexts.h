#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "store/ConfigInfo.h"
#include "tests/support/Outline.h"

/// The texts that a document holds, read past the accessors and past the store's look-ups by key.
namespace XMLConfig::tests {

inline std::wstring pathStep(const OutlineNode& node) {
    return node.id().empty() ? node.name : node.name + L"[" + node.id() + L"]";
}

/// What stands inside an element: its text, or its child elements as XML (characters unescaped).
inline std::wstring innerText(const OutlineNode& node) {
    std::wstring text = node.children.empty() ? node.text : L"";
    for (const OutlineNode& child : node.children) {
        text += L"<" + child.name;
        for (const auto& [name, value] : child.attributes) text += L" " + name + L"=\"" + value + L"\"";
        text += L">" + innerText(child) + L"</" + child.name + L">";
    }
    return text;
}

inline void appendLeaves(const std::vector<OutlineNode>& nodes, const std::wstring& path,
                         std::vector<std::wstring>& leaves) {
    for (const OutlineNode& node : nodes) {
        if (node.children.empty()) leaves.push_back(path + pathStep(node) + L" = " + node.text);
        appendLeaves(node.children, path + pathStep(node) + L"|", leaves);
    }
}

/// Every element without child elements as "Section[ID]|Key = text", in document order.
inline std::vector<std::wstring> leavesOf(const ConfigInfo& document) {
    std::vector<std::wstring> leaves;
    appendLeaves(outline(document), L"", leaves);
    return leaves;
}

/// The inside of the section's items in document order, as "Key = text"; of the first section with that name and ID.
inline std::vector<std::wstring> itemsOf(const ConfigInfo& document, const std::wstring& sectionName,
                                         const std::wstring& sectionID = {}) {
    std::vector<std::wstring> items;
    for (const OutlineNode& section : outline(document)) {
        if (section.name != sectionName || section.id() != sectionID) continue;
        for (const OutlineNode& item : section.children) items.push_back(item.name + L" = " + innerText(item));
        return items;
    }
    return items;
}

/// The inside of an item whose key's parts are joined by "|"; nothing when it is missing.
inline std::optional<std::wstring> storedText(const ConfigInfo& document, const std::wstring& sectionName,
                                              const std::wstring& key, const std::wstring& sectionID = {}) {
    const std::vector<OutlineNode> nodes = outline(document);
    for (const OutlineNode& section : nodes) {
        if (section.name != sectionName || section.id() != sectionID) continue;
        const OutlineNode* found = &section;
        for (std::size_t start = 0; found != nullptr && start <= key.size();) {
            const std::size_t end = std::min(key.find(L'|', start), key.size());
            const OutlineNode* next = nullptr;
            for (const OutlineNode& child : found->children)
                if (next == nullptr && child.name == key.substr(start, end - start)) next = &child;
            found = next;
            start = end + 1;
        }
        return found == nullptr ? std::nullopt : std::optional<std::wstring>(innerText(*found));
    }
    return std::nullopt;
}

}  // namespace XMLConfig::tests
