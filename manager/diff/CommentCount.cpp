#include "manager/diff/CommentCount.h"

#include <algorithm>
#include <map>

#include "platform/Words.h"

namespace XMLConfig::detail {

std::size_t countChangedComments(const std::vector<std::wstring>& ones, const std::vector<std::wstring>& others) {
    std::map<std::wstring, int> balances;  // how often a text is among the ones, less how often among the others
    for (const std::wstring& comment : ones) ++balances[withoutOuterBlanks(comment)];
    for (const std::wstring& comment : others) --balances[withoutOuterBlanks(comment)];
    int more = 0;
    int fewer = 0;
    for (const auto& [text, balance] : balances) (balance > 0 ? more : fewer) += balance;
    return static_cast<std::size_t>(std::max(more, -fewer));
}

}  // namespace XMLConfig::detail
