#pragma once

#include <string>

#include "store/SectionTag.h"

namespace XMLConfig::detail {

/// One primitive change of the tree, passed to the index after it was made.
struct TreeChange {
    enum class Kind {
        SectionAdded,     ///< `element` is the root's last child
        SectionRemoved,   ///< `section` was a child of the root
        SectionRenamed,   ///< `section` has the ID `newID`
        SectionsSwapped,  ///< `section` and the next one of its tag, `later`, changed places
        ChildAdded,       ///< `element` is the last child of `section`
        ChildRemoved,     ///< `element` was a child of `section`
        InsideAdded,      ///< `element` is the last child of an element in `section`
        InsideReplaced,   ///< `element`, in `section` or that itself, has other content
        TextReplaced,     ///< the text that `known` is about, and nothing else
        HeadersSet,       ///< children of the root have other texts, or others before them
        CommentsChanged   ///< the root or its children hold other comments, which are no part of the index
    };
    Kind kind;
    Section* section = nullptr;
    xercesc::DOMElement* element = nullptr;
    Section* later = nullptr;
    KnownItem* known = nullptr;
    const std::wstring* newID = nullptr;
};

}  // namespace XMLConfig::detail
