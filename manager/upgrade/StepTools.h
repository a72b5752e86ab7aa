#pragma once

#include <string>
#include <vector>

#include "manager/upgrade/StepDocument.h"
#include "store/ConfigInfo.h"
#include "store/ElementItem.h"

/// The words in which conversion steps are written.
namespace XMLConfig::detail {

/// One section of the document as a step addresses it. The step names every key and fixes every value in literals of its
/// own; what it shares with the rest of the library is the store's text form of each type and, for cameras, the record of
/// the common library. So an old step writes today what it wrote in its release, whatever has become of the setting.
class StepSection {
public:
    /// Of items. A step that asks many sections for the same ones makes them once.
    using Keys = std::vector<std::wstring>;

    /// `document` is borrowed. The first section of that name is meant. Creates nothing.
    StepSection(StepDocument& document, const wchar_t* name);
    /// Both are borrowed.
    StepSection(StepDocument& document, StepDevice& device) : m_document(&document), m_device(&device) {}
    [[nodiscard]] const std::wstring& id() const;

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
    void setElement(const std::wstring& key, const StoredElement& element);

    /// Items that the section lacks are passed over.
    void removeItem(const std::wstring& key);
    void removeItems(const Keys& keys);
    void rename(const std::wstring& newID);
    void remove();

private:
    [[nodiscard]] ConfigInfo& stored() const { return m_document->stored(); }
    [[nodiscard]] const std::wstring& name() const { return m_device == nullptr ? m_name : m_device->kind->name; }
    /// Null where the document is to be asked.
    [[nodiscard]] const std::wstring* waiting(const std::wstring& key) const;

    StepDocument* m_document;
    StepDevice* m_device = nullptr;  ///< null for other sections
    std::wstring m_name = {};        ///< of one of these
};

/// The sections that have an ID, in document order. They are found once: later renames and removals do not change the list.
std::vector<StepSection> projectorsOf(StepDocument& document);
std::vector<StepSection> camerasOf(StepDocument& document);

}  // namespace XMLConfig::detail
