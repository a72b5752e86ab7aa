#pragma once

#include <string>

class ConfigInfo;

/// Watches a document change, for callers that report what was done to it. Without an observer nothing is gathered.
namespace XMLConfig::detail {

struct Change {
    enum class Kind {
        ItemAdded,
        ItemChanged,
        ItemRemoved,
        SectionAdded,
        SectionRemoved,
        SectionRenamed,
        SectionMoved,
        VersionChanged
    };
    Kind kind;
    std::wstring section;    ///< tag
    std::wstring sectionID;  ///< as it was before the change
    std::wstring key;        ///< empty for a section as a whole; a subsection stands before the key as "Slot[3]|"
    std::wstring oldValue;   ///< the old text, the old ID of a renamed section, or empty
    std::wstring newValue;   ///< the new text, the new ID, or empty

    /// A subsection as keys name it: "Slot[3]", or "Slot" where it has no ID.
    static std::wstring subSection(const std::wstring& name, const std::wstring& id) {
        return id.empty() ? name : name + L"[" + id + L"]";
    }
};

class ChangeObserver {
public:
    virtual ~ChangeObserver() = default;
    /// Called after each effective change, which the observer may keep; must not change the document. What it throws reaches
    /// whoever made the change, which stands all the same.
    virtual void changed(Change&& change) = 0;
};

/// Sets the document's observer (not owned; null for none) and returns the one before.
ChangeObserver* setChangeObserver(ConfigInfo& document, ChangeObserver* observer);

}  // namespace XMLConfig::detail
