#include "fuzz/FuzzFile.h"
#include "platform/IPathHelper.h"

namespace {

namespace detail = XMLConfig::detail;

void tryParts(const std::wstring& path) {
    require(detail::splitPath(path).joined() == path, "the parts of a path make the path");
    const std::wstring folded = detail::foldPath(path);
    require(detail::foldPath(folded) == folded, "a folded path stays");
    require(detail::isAbsolute(folded) == detail::isAbsolute(path), "folding leaves a path absolute or relative");
    require(detail::lastComponent(path).size() <= path.size(), "a component is a part");
    static_cast<void>(detail::folderOf(path));
}

void tryHelper(const std::wstring& root, const std::wstring& path) {
    const std::unique_ptr<IPathHelper> helper(createPathHelper());
    helper->setRootPath(root);
    const std::wstring absolute = helper->makeAbsolute(path);
    const std::wstring relative = helper->makeRelative(path);
    require(!helper->isRelative(path) || helper->makeRelative(path) == path, "a relative path is left alone");
    require(helper->isRelative(path) || helper->makeAbsolute(path) == path, "an absolute path is left alone");
    require(helper->makeAbsolute(absolute) == absolute || helper->isRelative(absolute), "an absolute path stays");
    static_cast<void>(helper->resolve(relative, root));
    const bool isOfAServer = root.size() > 1 && detail::isSeparator(root[0]) && detail::isSeparator(root[1]);
    if (isOfAServer || !detail::isAbsolute(root) || !detail::isAbsolute(path) || !helper->isRelative(relative) ||
        relative.empty())
        return;
    // There and back: the same place, if not the same text.
    const std::wstring back = helper->makeRelative(helper->makeAbsolute(relative));
    require(back == relative, "the way there and back");
}

}  // namespace

// Paths as text: two of them, a line each.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    Input input(bytes, size);
    const std::wstring text = input.rest();
    const std::size_t line = text.find(L'\n');
    const std::wstring root = text.substr(0, line);
    const std::wstring path = line == std::wstring::npos ? L"" : text.substr(line + 1);
    tryParts(root);
    tryParts(path);
    tryHelper(root, path);
    return 0;
}
