#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/ElementView.h"

namespace XMLConfig {

/// A place in a text file; line and column are counted from 1, as messages about malformed files count them.
struct FilePlace {
    unsigned long long line = 0;
    unsigned long long column = 0;
};

/// Where a document's elements stand in the file that it was loaded from. A document keeps no places, so that only those pay
/// for them who ask: the file is read once more. That takes a small part of the time of a load where the file is as the
/// document was loaded or saved, and about one and a half loads where it has changed since.
///
/// An element is found by what it is, not by what was done to it: it has the place of the file's element of the same tag
/// and the same "ID" attribute (or none), below elements likewise the same. Of several that are equal in that, the first
/// has the place of the first, and so on. What the file does not hold, because it was made or renamed since, has no place.
class XMLCONFIG_API FilePlaces {
public:
    /// Reads the file as it is now. Throws CorvaneException "Error FilePlaces: ..." when it cannot be read or would not
    /// load.
    FilePlaces(const ConfigInfo& document, const std::wstring& path);
    ~FilePlaces();
    FilePlaces(const FilePlaces&) = delete;
    FilePlaces& operator=(const FilePlaces&) = delete;

    /// Where the element's start tag begins; nothing for an element that has no place. Ask before the document changes or
    /// ends.
    std::optional<FilePlace> find(const ElementView& element) const;

private:
    struct Places;
    std::unique_ptr<Places> m_places;
};

/// The places of many elements, each as FilePlaces finds it, and nothing for a view of no element. Where neither the file
/// nor the document has changed since the load, this is done in one walk through each, and takes a third of the time. Throws
/// as FilePlaces.
XMLCONFIG_API std::vector<std::optional<FilePlace>> placesOf(const std::vector<ElementView>& elements,
                                                             const ConfigInfo& document, const std::wstring& path);

}  // namespace XMLConfig
