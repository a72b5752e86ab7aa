#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/Outline.h"

/// The addressing rules once more, as plain walks over plain vectors: what the store's results are compared with.
namespace storetests {

class ReferenceStore {
public:
    /// An element, or a piece of text when its name is empty.
    struct Node {
        std::wstring name;
        std::wstring text;
        std::optional<std::wstring> id;
        std::vector<std::unique_ptr<Node>> children;
    };
    struct Address {
        std::wstring section, id, subSection, subID;
    };

    ReferenceStore() { m_root.name = L"ConfigInfo"; }

    bool dirty = false;

    /// Takes over the elements of a document that holds no mixed content.
    void take(const std::vector<XMLConfig::tests::OutlineNode>& nodes) {
        m_root.children.clear();
        for (const auto& node : nodes) m_root.children.push_back(taken(node));
    }

    std::wstring get(const Address& at, const std::wstring& key, const std::wstring& fallback) const {
        const Node* item = find(container(at), key);
        return item ? textOf(*item) : fallback;
    }
    void set(const Address& at, const std::wstring& key, const std::wstring& value) {
        Node* home = container(at);
        if (Node* item = find(home, key)) {
            if (textOf(*item) == value) return;
            item->children.clear();
            addText(*item, value);
        } else {
            addText(made(home ? *home : madeContainer(at), key), value);
        }
        dirty = true;
    }
    /// Stores one element of that name and text.
    void setElement(const Address& at, const std::wstring& key, const std::wstring& tag, const std::wstring& text) {
        Node* home = container(at);
        Node* item = find(home, key);
        const bool existed = item != nullptr;
        if (!existed) item = &made(home ? *home : madeContainer(at), key);
        const bool same = existed && holdsJust(*item, tag, text);
        item->children.clear();
        addText(appended(*item, tag), text);
        if (!same) dirty = true;
    }
    bool hasSection(const Address& at) const { return section(at.section, at.id) != nullptr; }
    bool hasSubSection(const Address& at) const { return subSection(at).child != nullptr; }
    bool hasItem(const Address& at, const std::wstring& key) const {
        return find(section(at.section, at.id), key) != nullptr;
    }
    bool removeItem(const Address& at, const std::wstring& key) {
        Node* home = section(at.section, at.id);
        Node* item = find(home, key);
        if (!item) return false;
        erase(*home, item);
        return dirty = true;
    }
    int count(const std::wstring& name) const {
        int result = 0;
        for (const auto& child : m_root.children) result += child->name == name;
        return result;
    }
    std::vector<std::wstring> ids(const std::wstring& name) const { return idsIn(m_root, name); }
    int subCount(const std::wstring& name, const std::wstring& subName) const {
        int result = 0;
        for (const auto& child : m_root.children)
            if (child->name == name)
                for (const auto& grandchild : child->children) result += grandchild->name == subName;
        return result;
    }
    std::vector<std::wstring> subIds(const std::wstring& name, const std::wstring& subName) const {
        std::vector<std::wstring> result;
        for (const auto& child : m_root.children)
            if (child->name == name)
                for (auto& id : idsIn(*child, subName)) result.push_back(std::move(id));
        return result;
    }
    bool removeSection(const Address& at) {
        const Node* found = section(at.section, at.id);
        if (!found) return false;
        erase(m_root, found);
        return dirty = true;
    }
    bool removeSubSection(const Address& at) {
        const Found found = subSection(at);
        if (!found.child) return false;
        erase(*found.parent, found.child);
        return dirty = true;
    }
    bool rename(const std::wstring& name, const std::wstring& from, const std::wstring& to) {
        if (from.empty()) return false;
        Node* found = section(name, from);
        if (!found) return false;
        found->id = to;
        return dirty = true;
    }
    bool move(int direction, const std::wstring& name, const std::wstring& id) {
        const Node* found = section(name, id);
        if (!found || (direction != 1 && direction != -1)) return false;
        auto& all = m_root.children;
        std::size_t here = 0;
        while (all[here].get() != found) ++here;
        for (std::size_t other = here + static_cast<std::size_t>(direction); other < all.size();
             other += static_cast<std::size_t>(direction)) {
            if (all[other]->name != name) continue;
            moveBefore(std::max(here, other), std::min(here, other));
            return dirty = true;
        }
        return false;
    }
    /// What a save and a load make of it: elements that hold nothing but elements are laid out, two blanks a level.
    void layOut() { layOut(m_root, 0); }
    std::vector<XMLConfig::tests::OutlineNode> outline() const { return outlined(m_root).children; }

private:
    struct Found {
        Node* parent = nullptr;
        Node* child = nullptr;
    };

    static bool isLayout(const Node& node) {
        return node.name.empty() && node.text.find_first_not_of(L" \t\n") == std::wstring::npos;
    }
    static void addLayout(std::vector<std::unique_ptr<Node>>& to, int level) {
        to.push_back(std::make_unique<Node>());
        to.back()->text = L"\n" + std::wstring(static_cast<std::size_t>(level) * 2, L' ');
    }
    static void layOut(Node& node, int level) {
        bool hasElements = false;
        for (const auto& child : node.children) {
            if (child->name.empty() && !isLayout(*child)) return;
            hasElements = hasElements || !child->name.empty();
        }
        std::vector<std::unique_ptr<Node>> laidOut;
        for (auto& child : node.children) {
            if (child->name.empty()) continue;
            addLayout(laidOut, level + 1);
            layOut(*child, level + 1);
            laidOut.push_back(std::move(child));
        }
        if (hasElements) addLayout(laidOut, level);
        node.children = std::move(laidOut);
    }
    /// Whether the item holds one element of that name and text, and layout.
    static bool holdsJust(const Node& item, const std::wstring& tag, const std::wstring& text) {
        const Node* only = nullptr;
        for (const auto& child : item.children) {
            if (isLayout(*child)) continue;
            if (only || child->name != tag || child->id) return false;
            only = child.get();
        }
        if (!only) return false;
        for (const auto& child : only->children)
            if (!child->name.empty()) return false;
        return textOf(*only) == text;
    }
    static bool matches(const Node& node, const std::wstring& name, const std::wstring& id) {
        return !name.empty() && node.name == name && (id.empty() || (node.id && *node.id == id));
    }
    static Node* childOf(const Node& parent, const std::wstring& name, const std::wstring& id) {
        for (const auto& child : parent.children)
            if (matches(*child, name, id)) return child.get();
        return nullptr;
    }
    Node* section(const std::wstring& name, const std::wstring& id) const { return childOf(m_root, name, id); }
    Found subSection(const Address& at) const {
        for (const auto& child : m_root.children) {
            if (!matches(*child, at.section, at.id)) continue;
            if (Node* found = childOf(*child, at.subSection, at.subID)) return {child.get(), found};
        }
        return {};
    }
    Node* container(const Address& at) const {
        return at.subSection.empty() ? section(at.section, at.id) : subSection(at).child;
    }
    Node& madeContainer(const Address& at) {
        Node* home = at.subSection.empty() ? nullptr : section(at.section, at.id);
        if (!home) home = &appended(m_root, at.section, at.id);
        return at.subSection.empty() ? *home : appended(*home, at.subSection, at.subID);
    }
    static std::vector<std::wstring> parts(const std::wstring& key) {
        std::vector<std::wstring> result(1);
        for (const wchar_t character : key) {
            if (character == L'|') result.emplace_back();
            else result.back() += character;
        }
        return result;
    }
    static Node* find(Node* home, const std::wstring& key) {
        for (const auto& part : parts(key))
            if (home) home = childOf(*home, part, L"");
        return home;
    }
    static Node& made(Node& home, const std::wstring& key) {
        Node* at = &home;
        for (const auto& part : parts(key)) {
            Node* next = childOf(*at, part, L"");
            at = next ? next : &appended(*at, part);
        }
        return *at;
    }
    static Node& appended(Node& parent, const std::wstring& name, const std::wstring& id = L"") {
        parent.children.push_back(std::make_unique<Node>());
        parent.children.back()->name = name;
        if (!id.empty()) parent.children.back()->id = id;
        return *parent.children.back();
    }
    static void addText(Node& parent, const std::wstring& text) {
        if (text.empty()) return;
        parent.children.push_back(std::make_unique<Node>());
        parent.children.back()->text = text;
    }
    static std::wstring textOf(const Node& node) {
        std::wstring result = node.text;
        for (const auto& child : node.children) result += textOf(*child);
        return result;
    }
    static std::vector<std::wstring> idsIn(const Node& parent, const std::wstring& name) {
        std::vector<std::wstring> result;
        for (const auto& child : parent.children)
            if (child->name == name && child->id) result.push_back(*child->id);
        return result;
    }
    static void erase(Node& parent, const Node* child) {
        for (auto at = parent.children.begin(); at != parent.children.end(); ++at) {
            if (at->get() != child) continue;
            parent.children.erase(at);
            return;
        }
    }
    void moveBefore(std::size_t from, std::size_t to) {
        auto moved = std::move(m_root.children[from]);
        m_root.children.erase(m_root.children.begin() + static_cast<std::ptrdiff_t>(from));
        m_root.children.insert(m_root.children.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    }
    static std::unique_ptr<Node> taken(const XMLConfig::tests::OutlineNode& from) {
        auto node = std::make_unique<Node>();
        node->name = from.name;
        for (const auto& [name, value] : from.attributes)
            if (name == L"ID") node->id = value;
        if (from.children.empty()) addText(*node, from.text);
        for (const auto& child : from.children) node->children.push_back(taken(child));
        return node;
    }
    static XMLConfig::tests::OutlineNode outlined(const Node& node) {
        XMLConfig::tests::OutlineNode result;
        result.name = node.name;
        if (node.id) result.attributes.emplace_back(L"ID", *node.id);
        for (const auto& child : node.children)
            if (!child->name.empty()) result.children.push_back(outlined(*child));
        if (result.children.empty()) result.text = textOf(node);
        return result;
    }

    Node m_root;
};

/// A readable form of an outline, to compare two: names, IDs, and the text of elements without child elements. Layout
/// that removals leave in an empty section is no text.
inline std::wstring described(const std::vector<XMLConfig::tests::OutlineNode>& nodes, const std::wstring& indent = L"") {
    std::wstring result;
    for (const auto& node : nodes) {
        result += indent + node.name;
        for (const auto& [name, value] : node.attributes) result += L" " + name + L"=[" + value + L"]";
        const bool isLayout = indent.empty() && node.text.find_first_not_of(L" \n") == std::wstring::npos;
        if (node.children.empty() && !isLayout) result += L" '" + node.text + L"'";
        result += L"\n" + described(node.children, indent + L"  ");
    }
    return result;
}

}  // namespace storetests
