#include "platform/PrivateFolder.h"

#include <random>

namespace XMLConfig::detail {
namespace {

std::wstring unforeseen() {
    constexpr std::wstring_view digits = L"0123456789abcdef";
    constexpr int length = 20;
    std::random_device random;
    std::wstring text;
    for (int i = 0; i < length; ++i) text += digits[random() % digits.size()];
    return text;
}

}  // namespace

PrivateFolder makePrivateFolder(const std::wstring& path) {
    const std::wstring own = path + L'-' + userMark();
    for (const std::wstring& candidate : {path, own}) {
        const FolderClaim claim = claimFolder(candidate);
        if (claim != FolderClaim::anothers) return {candidate, claim == FolderClaim::own};
    }
    const std::wstring last = own + L'-' + unforeseen();
    return {last, claimFolder(last) == FolderClaim::own};
}

}  // namespace XMLConfig::detail
