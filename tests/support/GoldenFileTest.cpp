#include "tests/support/GoldenFile.h"

#include "tests/support/TemporaryFolder.h"

TEST(GoldenFile, EqualTextsHaveNoDifference) { EXPECT_EQ(unifiedDiff("a\nb\n", "a\nb\n", "x"), ""); }

TEST(GoldenFile, DifferenceNamesTheLines) {
    EXPECT_EQ(unifiedDiff("a\nb\nc\n", "a\nB\nc\n", "x"),
              "--- x (expected)\n+++ x (actual)\n@@ line 1 @@\n a\n-b\n+B\n c\n");
}

TEST(GoldenFile, DifferenceShowsThreeLinesAround) {
    EXPECT_EQ(unifiedDiff("1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\n6\n7\n8\n9\n", "x"),
              "--- x (expected)\n+++ x (actual)\n@@ line 2 @@\n 2\n 3\n 4\n-5\n 6\n 7\n 8\n");
}

TEST(GoldenFile, MissingLineEndIsADifference) {
    EXPECT_EQ(unifiedDiff("a\n", "a", "x"), "--- x (expected)\n+++ x (actual)\n@@ line 1 @@\n-a\n+a  (no line end)\n");
}

TEST(GoldenFile, OtherTextAndMissingFileFail) {
    const TemporaryFolder folder;
    folder.write(L"golden.xml", "a\n");
    EXPECT_TRUE(matchesGolden(folder.path() / "golden.xml", "a\n"));
    EXPECT_FALSE(matchesGolden(folder.path() / "golden.xml", "b\n"));
    EXPECT_FALSE(matchesGolden(folder.path() / "missing.xml", "a\n"));
}
