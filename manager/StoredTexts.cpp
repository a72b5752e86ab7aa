#include "manager/StoredTexts.h"

#include <map>
#include <utility>

#include "manager/SettingSearch.h"
#include "platform/Words.h"

namespace XMLConfig {
namespace {

class Gathering {
public:
    void addItem(const ElementView& item, Address&& place, std::wstring&& path) {
        const Setting* const setting = knownSetting(place);
        if (setting != nullptr && setting->type == SettingType::Element) {
            for (const ElementView& part : item.children()) addSnippet(part, place, path + L"/" + part.name());
        } else if (!item.firstChild()) {
            m_texts.push_back({std::move(path), std::move(place), item, setting, item.text(), false});
        } else {
            for (const ElementView& child : item.children()) addChild(child, place, path);
        }
    }
    std::vector<StoredText> take() { return std::move(m_texts); }

private:
    void addChild(const ElementView& child, const Address& around, const std::wstring& pathAround) {
        const std::wstring name = child.name();
        Address place = around;
        std::wstring path = pathAround + (pathAround.empty() ? L"" : L"/") + name;
        std::wstring id = around.subSection.empty() && around.key.empty() ? child.id() : std::wstring();
        if (id.empty()) {
            place.key += (place.key.empty() ? L"" : L"|") + name;
        } else {
            path += addressText({L"", id, L"", L"", L""});
            place.subSection = name;
            place.subSectionID = std::move(id);
        }
        addItem(child, std::move(place), std::move(path));
    }

    void addSnippet(const ElementView& element, const Address& place, const std::wstring& path) {
        for (auto& [name, value] : element.attributes())
            m_texts.push_back({path + L"@" + name, place, element, nullptr, std::move(value), true});
        if (!element.firstChild()) {
            m_texts.push_back({path, place, element, nullptr, detail::withoutOuterBlanks(element.text()), true});
            return;
        }
        std::map<std::wstring, int> met;
        for (const ElementView& part : element.children()) {
            const int number = ++met[part.name()];
            addSnippet(part, place, path + L"/" + part.name() + (number == 1 ? L"" : L"#" + std::to_wstring(number)));
        }
    }

    std::vector<StoredText> m_texts;
};

}  // namespace

std::vector<StoredText> storedTexts(const ElementView& element, const Address& place, const std::wstring& start) {
    Gathering gathering;
    gathering.addItem(element, Address(place), std::wstring(start));
    return gathering.take();
}

}  // namespace XMLConfig
