#include "tools/SnippetParts.h"

#include <pugixml.hpp>
#include <sstream>

#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "store/CorvaneException.h"
#include "tools/Output.h"

namespace tool {
namespace {

[[noreturn]] void refuse(const wchar_t* why) { throw Refusal(why); }

bool namesElement(const std::wstring& address) {
    try {
        const XMLConfig::Setting* const setting = XMLConfig::knownSetting(XMLConfig::parseAddress(address));
        return setting != nullptr && setting->type == XMLConfig::SettingType::Element;
    } catch (const CorvaneParseException&) {
        return false;
    }
}

/// "name#2" is the second child of that name.
pugi::xml_node childOf(const pugi::xml_node& node, const std::string& step) {
    const std::size_t hash = step.find('#');
    const std::string name = step.substr(0, hash);
    int number = hash == std::string::npos ? 1 : std::atoi(step.c_str() + hash + 1);
    pugi::xml_node child = node.child(name.c_str());
    for (; child && number > 1; --number) child = child.next_sibling(name.c_str());
    return child;
}

/// A snippet as a tree and the text in it that a part names.
class Snippet {
public:
    Snippet(const std::wstring& xml, const std::wstring& part) : m_part(XMLConfig::utf8FromWide(part)) {
        const std::string bytes = XMLConfig::utf8FromWide(xml);
        if (!m_tree.load_buffer(bytes.data(), bytes.size(), pugi::parse_full, pugi::encoding_utf8))
            refuse(L"there is no device snippet");
        const std::size_t at = m_part.find('@');
        m_node = m_tree;
        std::istringstream steps(m_part.substr(0, at));
        for (std::string step; std::getline(steps, step, '/');) m_node = childOf(m_node, step);
        if (at != std::string::npos) m_attribute = m_node.attribute(m_part.c_str() + at + 1);
        if (!m_node || (at != std::string::npos && !m_attribute)) refuse(L"there is no such part in the snippet");
        if (!m_attribute &&
            m_node.find_child([](const pugi::xml_node& child) { return child.type() == pugi::node_element; }))
            refuse(L"holds other parts and no value");
    }

    [[nodiscard]] std::string text() const {
        const std::string text = m_attribute ? m_attribute.value() : m_node.text().get();
        const std::size_t first = text.find_first_not_of(" \t\r\n");
        if (m_attribute || first == std::string::npos) return m_attribute ? text : "";
        return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
    }
    void set(const std::string& text) {
        if (m_attribute) m_attribute.set_value(text.c_str());
        else m_node.text().set(text.c_str());
    }
    [[nodiscard]] std::string xml() const {
        std::ostringstream out;
        m_tree.save(out, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
        return out.str();
    }

private:
    std::string m_part;
    pugi::xml_document m_tree;
    pugi::xml_node m_node;
    pugi::xml_attribute m_attribute;
};

}  // namespace

std::size_t findOutsideIDs(const std::wstring& text, wchar_t wanted, std::size_t begin) {
    bool isInID = false;
    for (std::size_t i = begin; i < text.size(); ++i) {
        const bool isDoubled = isInID && text[i] == L']' && text.substr(i + 1, 1) == L"]";
        if (!isInID && text[i] == wanted) return i;
        if (!isInID && text[i] == L'[') isInID = true;
        else if (isDoubled) ++i;
        else if (text[i] == L']') isInID = false;
    }
    return std::wstring::npos;
}

SnippetPart snippetPartOf(const std::wstring& address) {
    for (std::size_t end = findOutsideIDs(address, L'/'); end != std::wstring::npos;
         end = findOutsideIDs(address, L'/', end + 1))
        if (namesElement(address.substr(0, end))) return {address.substr(0, end), address.substr(end + 1)};
    return {};
}

XMLConfig::Address wholeAddressOf(const std::string& operand) {
    const std::wstring text = XMLConfig::wideFromUtf8(operand);
    if (!snippetPartOf(text).part.empty())
        throw WrongOperands(operand + ": is in a device snippet; get and set take its single texts");
    return XMLConfig::parseAddress(text);
}

std::wstring partIn(const std::wstring& xml, const std::wstring& part) {
    return XMLConfig::wideFromUtf8(Snippet(xml, part).text());
}

std::wstring withPart(const std::wstring& xml, const std::wstring& part, const std::wstring& value) {
    Snippet snippet(xml, part);
    snippet.set(XMLConfig::utf8FromWide(value));
    return XMLConfig::wideFromUtf8(snippet.xml());
}

}  // namespace tool
