#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/ElementView.h"

namespace XMLConfig::detail {

struct Device {
    ElementView section;
    std::wstring id;
};

/// What stands in the root of a document. The tree is asked for each ID once: in a large document every look at a section
/// waits for memory.
class DocumentSections {
public:
    /// The document must stay as it is meanwhile.
    explicit DocumentSections(const ConfigInfo& document);

    /// The devices of that tag in document order. Of several with one ID only the first is a device; those without ID are
    /// none.
    const std::vector<Device>& devices(const std::wstring& tag) const;
    /// Header elements, sections that stand for no device, and those of devices without ID, in document order.
    const std::vector<ElementView>& others() const { return m_others; }
    /// The texts of the comments in one of all these, at any depth, or of those directly in the root.
    const std::vector<std::wstring>& comments(const ElementView& around) const;

private:
    void addComments(const ConfigInfo& document);

    std::map<std::wstring, std::vector<Device>> m_devices;  // by tag
    std::vector<ElementView> m_others;
    std::unordered_map<ElementView, std::vector<std::wstring>, ElementView::Hash> m_comments;  // by section, or root
};

}  // namespace XMLConfig::detail
