#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/ElementView.h"

/// The comments of a document that are meant for this library.
namespace XMLConfig::detail {

/// "xmlconfig accepts XC321: lighting ring above 45 degrees": what the rule finds there is known and is all right.
struct Acceptance {
    std::wstring rule;
    ElementView around;  ///< what it holds for, with all that is inside
    std::wstring text;   ///< the whole comment
};
std::vector<Acceptance> acceptancesOf(const std::vector<CommentView>& comments);

/// "xmlconfig conflict Projector[1]/Gamma base=2.2 ours=2.3 theirs=2.4": what a merge could not decide.
struct Conflict {
    std::wstring address;  ///< as it is written there
    std::wstring ours;
    std::wstring theirs;
};
/// Nothing for another comment. What it does not hold is "".
std::optional<Conflict> conflictOf(const std::wstring& comment);

}  // namespace XMLConfig::detail
