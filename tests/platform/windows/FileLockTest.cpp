#include "platform/FileLock.h"

#include <algorithm>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/Text.h"
#include "tests/support/FileErrors.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using XMLConfig::detail::FileLock;

std::wstring inCapitals(std::wstring text) {
    std::transform(text.begin(), text.end(), text.begin(), [](wchar_t unit) {
        return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
    });
    return text;
}

TEST(FileLockOnWindows, IsOneForAllFormsOfAName) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.skorrax");
    std::wstring slashes = path;
    std::replace(slashes.begin(), slashes.end(), L'\\', L'/');
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    FileLock held(path);
    ASSERT_TRUE(held.tryTake());
    for (const std::wstring& form : {inCapitals(path), slashes, path.substr(2), L"\\\\?\\" + path, L"\\\\.\\" + path,
                                     std::wstring(L"other.skorrax"), path.substr(0, 2) + L"a", std::wstring(L".\\a")})
        EXPECT_FALSE(FileLock(form).tryTake()) << XMLConfig::detail::toUtf8(form);
    EXPECT_TRUE(FileLock(L"..\\a.skorrax").tryTake());
    std::filesystem::current_path(before);
}

TEST(FileLockOnWindows, TellsWhyThereIsNone) {
    const TemporaryFolder folder;
    const auto errorOf = [](const std::wstring& path) { return fileErrorOf([&] { FileLock lock(path); }); };
    const std::wstring path = folder.file(L"none\\a.skorrax");
    EXPECT_EQ(errorOf(path), L"Can not lock the folder of file " + path + L": No such file or directory");
    EXPECT_EQ(errorOf(L""), L"Can not lock the folder of file : No such file or directory");
}

}  // namespace
