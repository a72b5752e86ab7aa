#include "platform/PrivateFolder.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

using namespace XMLConfig::detail;

TEST(PrivateFolder, IsMadeAndFoundAgain) {
    const TemporaryFolder above;
    for (int i = 0; i < 2; ++i) {
        const PrivateFolder made = makePrivateFolder(above.file(L"own"));
        EXPECT_TRUE(made.isThere);
        EXPECT_EQ(made.path, above.file(L"own"));
        EXPECT_TRUE(std::filesystem::is_directory(above.at(L"own")));
        above.write(L"own/kept", "text");
    }
    EXPECT_EQ(above.read(L"own/kept"), "text");
    EXPECT_EQ(above.entries(), 1u);
}

TEST(PrivateFolder, IsNotMadeInAFilesPlace) {
    const TemporaryFolder above;
    above.write(L"own", "a file");
    EXPECT_FALSE(makePrivateFolder(above.file(L"own")).isThere);
    EXPECT_EQ(above.read(L"own"), "a file");
    EXPECT_EQ(above.entries(), 1u);
}

TEST(PrivateFolder, IsNotMadeInAMissingFolder) {
    const TemporaryFolder above;
    EXPECT_FALSE(makePrivateFolder(above.file(L"none/own")).isThere);
    EXPECT_EQ(above.entries(), 0u);
}

}  // namespace
