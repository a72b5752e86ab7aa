#include "store/Address.h"

#include <algorithm>
#include <vector>
#include <xercesc/util/XMLChar.hpp>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"
#include "store/XmlLibrary.h"

namespace XMLConfig {
namespace {

struct Step {
    std::wstring name;
    std::wstring id;  // empty where there is none, since no identifier is
};

/// Reads an address from its start to its end or to the first "=" outside an identifier.
class Reader {
public:
    Reader(const std::wstring& text, bool stopsAtEquals) : m_text(text), m_end(stopsAtEquals ? L"/[=" : L"/[") {}

    std::vector<Step> steps() {
        std::vector<Step> steps{step()};
        while (m_place < m_text.size() && m_text[m_place] == L'/') {
            ++m_place;
            steps.push_back(step());
        }
        if (m_place < m_text.size() && m_text[m_place] != L'=') fail(L"a \"/\" must follow the identifier");
        return steps;
    }
    [[nodiscard]] std::size_t place() const { return m_place; }
    [[noreturn]] void fail(const std::wstring& fault) const {
        throw CorvaneParseException(L"Error parseAddress: \"" + m_text + L"\", character " +
                                    detail::formatInteger(static_cast<long long>(m_place) + 1) + L": " + fault);
    }

private:
    Step step() {
        Step step{name(), {}};
        if (m_place < m_text.size() && m_text[m_place] == L'[') step.id = identifier();
        return step;
    }

    std::wstring name() {
        const std::size_t end = std::min(m_text.find_first_of(m_end, m_place), m_text.size());
        std::wstring name = m_text.substr(m_place, end - m_place);
        const std::u16string units = detail::toUtf16(name);
        if (name.empty()) fail(L"a name is missing");
        if (!xercesc::XMLChar1_0::isValidName(detail::xmlText(units), units.size())) fail(L"\"" + name + L"\" is no name");
        m_place = end;
        return name;
    }

    std::wstring identifier() {
        std::wstring id;
        for (std::size_t i = m_place + 1; i < m_text.size(); ++i) {
            if (m_text[i] == L']') {
                if (i + 1 == m_text.size() || m_text[i + 1] != L']') return closed(id, i + 1);
                ++i;
            }
            id += m_text[i];
        }
        fail(L"the identifier has no end");
    }

    std::wstring closed(const std::wstring& id, std::size_t next) {
        if (id.empty()) fail(L"the identifier is empty");
        m_place = next;
        return id;
    }

    const std::wstring& m_text;
    const wchar_t* m_end;
    std::size_t m_place = 0;
};

Address addressOf(const Reader& reader, const std::vector<Step>& steps) {
    Address address;
    address.section = steps[0].name;
    address.sectionID = steps[0].id;
    std::size_t next = 1;
    if (steps.size() > 1 && !steps[1].id.empty()) {
        address.subSection = steps[1].name;
        address.subSectionID = steps[1].id;
        next = 2;
    }
    for (std::size_t i = next; i < steps.size(); ++i) {
        if (!steps[i].id.empty()) reader.fail(L"only a section and what stands directly in it have identifiers");
        address.key += (i == next ? L"" : L"|") + steps[i].name;
    }
    return address;
}

std::wstring nameAndID(const std::wstring& name, const std::wstring& id) {
    if (id.empty()) return name;
    std::wstring text = name + L"[";
    for (wchar_t character : id) text.append(character == L']' ? 2 : 1, character);
    return text + L"]";
}

}  // namespace

Address parseAddress(const std::wstring& text) {
    Reader reader(text, false);
    const std::vector<Step> steps = reader.steps();
    return addressOf(reader, steps);
}

Assignment parseAssignment(const std::wstring& text) {
    Reader reader(text, true);
    const std::vector<Step> steps = reader.steps();
    if (reader.place() == text.size()) reader.fail(L"\"=\" and a value are missing");
    return {addressOf(reader, steps), text.substr(reader.place() + 1)};
}

std::wstring addressText(const Address& address) {
    std::wstring text = nameAndID(address.section, address.sectionID);
    if (!address.subSection.empty()) text += L"/" + nameAndID(address.subSection, address.subSectionID);
    if (!address.key.empty()) text += L"/" + address.key;
    for (std::size_t i = text.size() - address.key.size(); i < text.size(); ++i)
        if (text[i] == L'|') text[i] = L'/';
    return text;
}

}  // namespace XMLConfig
