#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Setting.h"
#include "manager/check/Keys.h"
#include "store/ElementView.h"
#include "store/ValueTypes.h"

/// A document read once for all rules.
namespace XMLConfig::detail {

/// A setting, a group of settings or an unknown element below a section.
struct CheckedItem {
    using Kind = SectionKey::Kind;

    CheckedItem(const ElementView& place, const SectionKey& keyInSection, SharedText& textAtKey, bool isOfElements,
                const ElementView& earlier)
        : element(place),
          sharedKey(keyInSection),
          content(textAtKey),
          key(keyInSection.text),
          text(textAtKey.text),
          setting(keyInSection.setting),
          kind(keyInSection.kind),
          holdsElements(isOfElements),
          hiddenBy(earlier) {}

    ElementView element;
    const SectionKey& sharedKey;  ///< shared with all sections of the tag that hold the key
    SharedText& content;          ///< shared with the sections before it that store the same text there
    const std::wstring& key;      ///< parts joined by "|", with the IDs of subsections
    const std::wstring& text;     ///< of a value without child elements
    const Setting* setting;       ///< null where the catalogue knows none
    Kind kind;
    bool holdsElements;
    ElementView hiddenBy;   ///< the earlier one of the same name and ID, which the application reads
    bool isSecond = false;  ///< whether it is the first that is hidden by that one
};

/// A child of the root that is no header element.
class CheckedSection {
public:
    /// Without keys it stands for a section that the document does not have.
    CheckedSection(const ElementView& element, std::wstring tag, const KeysOfTag* keys);

    /// What the application reads at the key; null where nothing stands there.
    [[nodiscard]] const CheckedItem* find(std::wstring_view key) const;
    /// The text there, "" where nothing stands there.
    [[nodiscard]] const std::wstring& stored(std::wstring_view key) const;
    [[nodiscard]] bool holds(std::wstring_view key) const { return find(key) != nullptr; }
    /// Whether more than one item has the key: without the first the application reads the next.
    [[nodiscard]] bool holdsTwice(std::wstring_view key) const;
    [[nodiscard]] bool isDevice() const { return m_isDevice; }
    /// The name people give the device, its ID where it has none; "" for other sections.
    [[nodiscard]] std::wstring name() const;
    /// The name in quotes.
    [[nodiscard]] std::wstring title() const;
    [[nodiscard]] const std::wstring& address() const;
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
    friend class CheckedDocument;

    [[nodiscard]] const CheckedItem* find(const SectionKey* key) const;

    struct ItemOfKey {
        std::size_t number;  // of the key
        std::size_t item;
    };

    const KeysOfTag* m_keys;
    bool m_isDevice;
    std::vector<ItemOfKey> m_itemsByKey;  // of the items that are not hidden, by number
    mutable std::wstring m_address;
};

/// All sections, and what the application reads in them.
class CheckedDocument {
public:
    explicit CheckedDocument(const ConfigInfo& document);

    [[nodiscard]] const std::vector<CheckedSection>& sections() const { return m_sections; }
    /// The devices that the application reads, which are those with an ID that no earlier one has, in document order.
    [[nodiscard]] const std::vector<const CheckedSection*>& projectors() const { return m_projectors; }
    [[nodiscard]] const std::vector<const CheckedSection*>& cameras() const { return m_cameras; }
    /// The first section of that name; one without items where there is none.
    [[nodiscard]] const CheckedSection& section(std::wstring_view tag) const;
    [[nodiscard]] const CheckedSection* camera(const std::wstring& id) const;
    [[nodiscard]] const CheckedSection* projector(const std::wstring& id) const;
    /// The camera that had the ID before it was renamed; null where several say so, too.
    [[nodiscard]] const CheckedSection* cameraThatWas(const std::wstring& oldID) const;

    // What the application reads: the stored text, else what is inherited, else the default.

    [[nodiscard]] const std::wstring& text(const CheckedSection& section, std::wstring_view key) const {
        return read(section, key).text();
    }
    [[nodiscard]] double number(const CheckedSection& section, std::wstring_view key) const {
        return read(section, key).number();
    }
    [[nodiscard]] int integer(const CheckedSection& section, std::wstring_view key) const {
        return read(section, key).integer();
    }
    [[nodiscard]] bool flag(const CheckedSection& section, std::wstring_view key) const {
        return text(section, key) == L"true";
    }
    [[nodiscard]] std::vector<double> numbers(const CheckedSection& section, std::wstring_view key) const;
    [[nodiscard]] Point_3Dim<double> point(const CheckedSection& section, std::wstring_view key) const;
    // What the application reads in the first section of a name.
    [[nodiscard]] const std::wstring& text(std::wstring_view tag, std::wstring_view key) const {
        return read(tag, key).text();
    }
    [[nodiscard]] double number(std::wstring_view tag, std::wstring_view key) const { return read(tag, key).number(); }
    [[nodiscard]] int integer(std::wstring_view tag, std::wstring_view key) const { return read(tag, key).integer(); }
    [[nodiscard]] bool flag(std::wstring_view tag, std::wstring_view key) const { return text(tag, key) == L"true"; }
    [[nodiscard]] Point_3Dim<double> point(std::wstring_view tag, std::wstring_view key) const;

private:
    void readSections(const ConfigInfo& document);
    void gatherDevices();
    [[nodiscard]] const KeysOfTag& keysOf(std::wstring_view tag) const;
    [[nodiscard]] const ReadValue& read(const CheckedSection& section, std::wstring_view key) const;
    [[nodiscard]] const ReadValue& read(std::wstring_view tag, std::wstring_view key) const;
    [[nodiscard]] const ReadValue& inherited(const AskedKey& key) const;

    const ReadValue m_nothing{std::wstring()};
    mutable std::map<std::wstring, KeysOfTag, std::less<>> m_keys;
    std::vector<CheckedSection> m_sections;
    std::vector<const CheckedSection*> m_projectors;
    std::vector<const CheckedSection*> m_cameras;
    std::map<std::wstring, const CheckedSection*, std::less<>> m_firstOfTag;
    std::map<std::wstring, const CheckedSection*> m_cameraByID;
    std::map<std::wstring, const CheckedSection*> m_projectorByID;
    std::map<std::wstring, const CheckedSection*> m_cameraByOldID;
};

/// The value that a stored text of the setting gives; null where it counts as missing.
const ReadValue* valueOf(const CheckedItem& item);
/// The text of the first child of that name; "" without one.
std::wstring childText(const ElementView& element, const std::wstring& name);
/// The address of an element of a document.
std::wstring addressOf(const ElementView& element);
/// The address of an item that was read.
std::wstring addressOf(const CheckedSection& section, const CheckedItem& item);
/// The address of a key, whether anything is stored there or not.
std::wstring addressOf(const CheckedSection& section, std::wstring_view key);

}  // namespace XMLConfig::detail
