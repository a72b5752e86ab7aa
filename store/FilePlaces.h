#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/Export.h"
#include "store/ElementView.h"

namespace XMLConfig::detail {
struct ElementPlaces;
}  // namespace XMLConfig::detail

namespace XMLConfig {

/// A place in a text file; line and column are counted from 1, as messages about malformed files count them.
struct FilePlace {
    unsigned long long line = 0;
    unsigned long long column = 0;
};

/// Loads a file as ConfigInfo's file constructor does, and notes where its elements stand. Whoever will ask for places saves
/// a second load by that, as long as neither the document nor the file changes; the load itself takes a tenth longer. Throws
/// as that constructor does.
XMLCONFIG_API std::unique_ptr<ConfigInfo> loadWithPlaces(const std::wstring& path);

/// Where a document's elements stand in the file that it was loaded from. Only those pay for places who ask for them: unless
/// they were noted and are still right, the file is loaded once more for them.
///
/// An element is found by what it is, not by what was done to it: it has the place of the file's element of the same tag
/// and the same "ID" attribute (or none), below elements likewise the same. Of several that are equal in that, the first
/// has the place of the first, and so on. What the file does not hold, because it was made or renamed since, has no place.
class XMLCONFIG_API FilePlaces {
public:
    /// Reads the file as it is now. Throws CorvaneException "Error FilePlaces: ..." when it cannot be read or would not
    /// load.
    FilePlaces(const ConfigInfo& document, const std::wstring& path);

    /// Where the element's start tag begins; nothing for an element that has no place. Ask before the document changes or
    /// ends.
    std::optional<FilePlace> find(const ElementView& element) const;

private:
    std::shared_ptr<const detail::ElementPlaces> m_places;
};

}  // namespace XMLConfig
