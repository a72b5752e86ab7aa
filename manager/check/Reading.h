#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Setting.h"
#include "store/ElementView.h"
#include "store/ValueTypes.h"

/// A document read once for all rules.
namespace XMLConfig::detail {

/// A setting, a group of settings or an unknown element below a section.
struct CheckedItem {
    enum class Kind { Value, Group, Unknown };
    ElementView element;
    std::wstring key;        ///< parts joined by "|", with the IDs of subsections
    std::wstring text;       ///< of a value without child elements
    const Setting* setting;  ///< null where the catalogue knows none
    Kind kind;
    bool holdsElements;
    ElementView hiddenBy;  ///< the earlier one of the same name and ID, which the application reads
};

/// A child of the root that is no header element.
class CheckedSection {
public:
    CheckedSection(const ElementView& element, std::wstring tag);

    /// What the application reads at the key; null where nothing stands there.
    [[nodiscard]] const CheckedItem* find(std::wstring_view key) const;
    /// The text there, "" where nothing stands there.
    [[nodiscard]] std::wstring stored(std::wstring_view key) const;
    [[nodiscard]] bool holds(std::wstring_view key) const { return find(key) != nullptr; }
    [[nodiscard]] bool isDevice() const { return !id.empty() && (tag == L"Projector" || tag == L"Camera"); }
    /// The name people give the device, in quotes; its ID where it has none.
    [[nodiscard]] std::wstring title() const;
    /// The element inside its device snippet; none where there is none.
    [[nodiscard]] ElementView snippet() const;

    ElementView element;
    std::wstring tag;
    std::wstring id;
    ElementView hiddenBy;            ///< as of an item
    bool isKnown = true;             ///< whether the catalogue knows sections of that name
    std::vector<CheckedItem> items;  ///< in document order

private:
    friend class SectionReader;

    std::vector<std::size_t> m_byKey;  // indices of the items that are not hidden
};

/// All sections, and what the application reads in them.
class CheckedDocument {
public:
    explicit CheckedDocument(const ConfigInfo& document);

    [[nodiscard]] const std::vector<CheckedSection>& sections() const { return m_sections; }
    /// Those with an ID that no earlier one hides, in document order.
    [[nodiscard]] const std::vector<const CheckedSection*>& projectors() const { return m_projectors; }
    [[nodiscard]] const std::vector<const CheckedSection*>& cameras() const { return m_cameras; }
    /// The first section of that name; one without items where there is none.
    [[nodiscard]] const CheckedSection& section(const std::wstring& tag) const;
    [[nodiscard]] const CheckedSection* camera(const std::wstring& id) const;
    [[nodiscard]] const CheckedSection* projector(const std::wstring& id) const;
    /// The camera that had the ID before it was renamed.
    [[nodiscard]] const CheckedSection* cameraThatWas(const std::wstring& oldID) const;

    // What the application reads: the stored text, else what is inherited, else the default.

    [[nodiscard]] std::wstring text(const CheckedSection& section, const std::wstring& key) const;
    [[nodiscard]] double number(const CheckedSection& section, const std::wstring& key) const;
    [[nodiscard]] int integer(const CheckedSection& section, const std::wstring& key) const;
    [[nodiscard]] bool flag(const CheckedSection& section, const std::wstring& key) const;
    [[nodiscard]] std::vector<double> numbers(const CheckedSection& section, const std::wstring& key) const;
    [[nodiscard]] Point_3Dim<double> point(const CheckedSection& section, const std::wstring& key) const;
    // The same of the first section of a name.
    [[nodiscard]] std::wstring text(const std::wstring& tag, const std::wstring& key) const;
    [[nodiscard]] double number(const std::wstring& tag, const std::wstring& key) const;
    [[nodiscard]] int integer(const std::wstring& tag, const std::wstring& key) const;
    [[nodiscard]] bool flag(const std::wstring& tag, const std::wstring& key) const;
    [[nodiscard]] Point_3Dim<double> point(const std::wstring& tag, const std::wstring& key) const;

private:
    void readSections(const ConfigInfo& document);
    void gatherDevices();

    std::vector<CheckedSection> m_sections;
    std::vector<const CheckedSection*> m_projectors;
    std::vector<const CheckedSection*> m_cameras;
    std::map<std::wstring, const CheckedSection*> m_firstOfTag;
    std::map<std::wstring, const CheckedSection*> m_cameraByID;
    std::map<std::wstring, const CheckedSection*> m_projectorByID;
    std::map<std::wstring, const CheckedSection*> m_cameraByOldID;
};

/// The value that a stored text of the setting gives, in stored form; nothing where it counts as missing.
std::optional<std::wstring> valueOf(const CheckedItem& item);
/// The numbers that begin the pieces of a text.
std::vector<double> numbersOf(const std::wstring& text);
/// The text of the first child of that name; "" without one.
std::wstring childText(const ElementView& element, const std::wstring& name);
ElementView childOf(const ElementView& element, const std::wstring& name);
/// The address of an element of a document.
std::wstring addressOf(const ElementView& element);

}  // namespace XMLConfig::detail
