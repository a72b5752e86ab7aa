#pragma once

#include <string>
#include <vector>

#include "store/ConfigInfo.h"
#include "store/ElementParts.h"

/// The words in which conversion steps are written.
namespace XMLConfig::detail {

/// One section of the document as a step addresses it. The step names every key and fixes every value in literals of its
/// own; what it shares with the rest of the library is the store's text form of each type and, for cameras, the record of
/// the common library. So an old step writes today what it wrote in its release, whatever has become of the setting.
class StepSection {
public:
    /// Of items. A step that asks many sections for the same ones makes them once.
    using Keys = std::vector<std::wstring>;

    /// `document` is borrowed. Without an `id` the first section of that name is meant. Creates nothing.
    StepSection(ConfigInfo& document, const wchar_t* name, std::wstring id = {});
    [[nodiscard]] const std::wstring& id() const { return m_id; }

    // Reading creates nothing; a missing item gives the fallback.

    [[nodiscard]] bool has(const std::wstring& key) const;
    [[nodiscard]] bool flag(const std::wstring& key, bool fallback) const;
    [[nodiscard]] int integer(const std::wstring& key, int fallback) const;
    [[nodiscard]] double number(const std::wstring& key, double fallback) const;
    [[nodiscard]] Point_2Dim<int> point(const std::wstring& key, const Point_2Dim<int>& fallback) const;
    [[nodiscard]] std::wstring text(const std::wstring& key, const std::wstring& fallback = {}) const;
    /// XML text of the element that the item holds; "" where there is none.
    [[nodiscard]] std::wstring element(const std::wstring& key) const;

    // Writing creates what is missing, the section too.

    void setFlag(const std::wstring& key, bool value);
    void setInteger(const std::wstring& key, int value);
    void setNumber(const std::wstring& key, double value);
    void setPoint(const std::wstring& key, const Point_2Dim<int>& value);
    void setText(const std::wstring& key, const std::wstring& value);
    void setElement(const std::wstring& key, const ElementParts& element);

    /// Items that the section lacks are passed over.
    void removeItem(const std::wstring& key);
    void removeItems(const Keys& keys);
    void rename(const std::wstring& newID);
    void remove();

private:
    ConfigInfo* m_document;
    std::wstring m_name;
    std::wstring m_id;
};

/// The sections that have an ID, in document order. They are found once: later renames and removals do not change the list.
std::vector<StepSection> projectorsOf(ConfigInfo& document);
std::vector<StepSection> camerasOf(ConfigInfo& document);

}  // namespace XMLConfig::detail
