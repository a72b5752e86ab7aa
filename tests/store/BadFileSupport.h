#pragma once

#include "tests/store/StoreSupport.h"

namespace storetests {

inline std::wstring loadMessage(const std::wstring& path) {
    return messageOf([&] { const ConfigInfo document(path); });
}

/// Expects the refusal of a malformed text, with its place.
inline void expectMalformed(const std::string& text, const std::string& what) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"bad.skorrax", text);
    const auto message = loadMessage(path);
    const std::wstring start = L"Error parseDataFile: Error during parsing: " + path + L" XML message is: ";
    EXPECT_TRUE(namesPlace(message, start)) << what << "\n" << std::string(message.begin(), message.end());
    EXPECT_EQ(folder.read(L"bad.skorrax"), text);
    EXPECT_EQ(folder.entries(), 1u);
}

}  // namespace storetests
