#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/Text.h"

/// The message of the file error that the call throws, or "no error".
template <typename Call>
std::wstring fileErrorOf(Call call) {
    try {
        call();
    } catch (const XMLConfig::detail::FileError& error) {
        EXPECT_EQ(error.what(), XMLConfig::detail::toUtf8(error.message()));
        return error.message();
    }
    return L"no error";
}

/// The same of a file that is replaced by these bytes.
inline std::wstring replaceError(const std::wstring& path, std::string_view bytes = "new") {
    return fileErrorOf([&] { XMLConfig::detail::replaceFile(path, bytes); });
}
inline std::wstring replaceError(const std::wstring& path, const XMLConfig::detail::ByteSource& source) {
    return fileErrorOf([&] { XMLConfig::detail::replaceFile(path, source); });
}
