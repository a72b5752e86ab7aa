#include "platform/Files.h"

#include <atomic>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

#include "platform/Text.h"
#include "tests/support/FileErrors.h"
#include "tests/support/GermanLocale.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace XMLConfig::detail;

class Files : public testing::Test {
protected:
    TemporaryFolder m_folder;
};

TEST_F(Files, AreReplacedAndReadBackByteForByte) {
    std::string bytes;
    for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i * 7 % 256);
    const std::wstring path = m_folder.file(L"hall.skorrax");
    replaceFile(path, bytes);
    EXPECT_EQ(readWholeFile(path), bytes);
    replaceFile(path, "\r\n\0short");
    EXPECT_EQ(m_folder.read(L"hall.skorrax"), "\r\n");
    replaceFile(path, "");
    EXPECT_EQ(readWholeFile(path), "");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(Files, AreReplacedByAllThePiecesOfASource) {
    const std::string piece(100000, 'x');
    const ByteSource source = [&piece](const ByteSink& sink) {
        for (const std::string_view bytes : {std::string_view("first "), std::string_view(piece), std::string_view()}) {
            sink(bytes);
        }
        sink(" last");
    };
    const std::wstring path = m_folder.write(L"a", std::string(300000, 'o'));
    replaceFile(path, source);
    replaceFile(m_folder.file(L"new"), source);
    EXPECT_EQ(m_folder.read(L"a"), "first " + piece + " last");
    EXPECT_EQ(m_folder.read(L"new"), "first " + piece + " last");
    EXPECT_EQ(gather(source), "first " + piece + " last");
}

TEST_F(Files, StandAsTheyWereWhereTheSourceFails) {
    const ByteSource source = [](const ByteSink& sink) {
        sink(std::string(100000, 'x'));
        throw std::out_of_range("no more");
    };
    EXPECT_THROW(replaceFile(m_folder.write(L"a", "old"), source), std::out_of_range);
    EXPECT_THROW(replaceFile(m_folder.file(L"new"), source), std::out_of_range);
    EXPECT_EQ(m_folder.read(L"a"), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
}

TEST_F(Files, AreReadPieceByPiece) {
    FileReader reader(m_folder.write(L"a", "abcde"));
    char buffer[4] = {};
    EXPECT_EQ(reader.read(buffer, 4), 4u);
    EXPECT_EQ(std::string(buffer, 4), "abcd");
    EXPECT_EQ(reader.read(buffer, 4), 1u);
    EXPECT_EQ(buffer[0], 'e');
    EXPECT_EQ(reader.read(buffer, 4), 0u);
    EXPECT_EQ(reader.read(buffer, 4), 0u);
}

TEST_F(Files, TakeNamesInAnyScript) {
    for (const wchar_t* name : {L"h\u00fc.skorrax", L"\u65e5\u672c.skorrax", L"\U0001F4FD.skorrax"}) {
        const std::wstring path = m_folder.file(name);
        replaceFile(path, "text");
        EXPECT_TRUE(fileExists(path));
        EXPECT_TRUE(canOpenForUpdate(path));
        EXPECT_EQ(m_folder.read(name), "text");
        EXPECT_TRUE(removeFile(path));
        EXPECT_FALSE(fileExists(path));
    }
}

TEST_F(Files, TakeBothSeparators) {
    EXPECT_TRUE(makeFolder(m_folder.file(L"") + L"\\meshes"));
    replaceFile(m_folder.file(L"") + L"\\meshes\\dome.obj", "mesh");
    EXPECT_EQ(readWholeFile(m_folder.file(L"") + L"/meshes/dome.obj"), "mesh");
    EXPECT_EQ(m_folder.read(L"meshes/dome.obj"), "mesh");
}

TEST_F(Files, OfLongPathsAreReached) {
    std::wstring path = m_folder.file(L"");
    for (int i = 0; i < 12; ++i) path += L"/a-folder-with-a-name-of-thirty-";
    ASSERT_TRUE(makeFolders(path));
    path += L"/hall.skorrax";
    ASSERT_GT(path.size(), 390u);
    replaceFile(path, "one");
    replaceFile(path, "two");
    EXPECT_TRUE(canOpenForUpdate(path));
    EXPECT_EQ(readWholeFile(path), "two");
}

TEST_F(Files, ThatAreMissingAreNotOpened) {
    const std::wstring path = m_folder.file(L"none");
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_FALSE(fileExists(path));
    EXPECT_FALSE(removeFile(path));
    EXPECT_EQ(fileErrorOf([&] { readWholeFile(path); }), L"Can not read file " + path + L": No such file or directory");
    EXPECT_EQ(m_folder.entries(), 0u);
}

TEST_F(Files, AreNotFolders) {
    const std::wstring path = m_folder.file(L"folder");
    ASSERT_TRUE(makeFolder(path));
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_TRUE(fileExists(path));
    EXPECT_FALSE(removeFile(path));
    EXPECT_EQ(fileErrorOf([&] { FileReader reader(path); }), L"Can not read file " + path + L": Is a directory");
    EXPECT_EQ(replaceError(path), L"Can not write file " + path + L": Is a directory");
    EXPECT_TRUE(std::filesystem::is_empty(pathOf(path)));
}

TEST_F(Files, HaveNames) {
    EXPECT_FALSE(canOpenForUpdate(L""));
    EXPECT_EQ(replaceError(L""), L"Can not write file : No such file or directory");
    EXPECT_FALSE(fileExists(L""));
}

TEST_F(Files, WithNullCharactersInTheNameAreRefused) {
    const std::wstring path = m_folder.write(L"a", "old") + std::wstring(1, L'\0') + L"b";
    EXPECT_NE(replaceError(path), L"no error");
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_FALSE(removeFile(path));
    EXPECT_EQ(m_folder.read(L"a"), "old");
}

TEST_F(Files, InAMissingFolderAreNotMade) {
    const std::wstring path = m_folder.file(L"none") + L"/hall.skorrax";
    EXPECT_EQ(replaceError(path), L"Can not write file " + path + L": No such file or directory");
    EXPECT_EQ(m_folder.entries(), 0u);
}

TEST_F(Files, ThatMayBeReadOnlyAreNotReplaced) {
    const std::wstring path = m_folder.write(L"a", "old");
    using std::filesystem::perms;
    std::filesystem::permissions(pathOf(path), perms::owner_write | perms::group_write | perms::others_write,
                                 std::filesystem::perm_options::remove);
    EXPECT_FALSE(canOpenForUpdate(path));
    EXPECT_EQ(replaceError(path), L"Can not write file " + path + L": Permission denied");
    EXPECT_EQ(readWholeFile(path), "old");
    EXPECT_EQ(m_folder.entries(), 1u);
    std::filesystem::permissions(pathOf(path), perms::owner_write, std::filesystem::perm_options::add);
    EXPECT_TRUE(canOpenForUpdate(path));
}

TEST_F(Files, AreOpenedForUpdateByManyThreadsAtOnce) {
    const std::wstring path = m_folder.write(L"a", "text");
    std::atomic<int> refused{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int j = 0; j < 200; ++j) {
                if (!canOpenForUpdate(path)) ++refused;
                if (readWholeFile(path) != "text") ++refused;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(refused, 0);
}

TEST_F(Files, KeepTheirErrorsInEnglish) {
    const GermanLocale german;
    const std::wstring path = m_folder.file(L"none");
    EXPECT_EQ(fileErrorOf([&] { readWholeFile(path); }), L"Can not read file " + path + L": No such file or directory");
    if (!GermanLocale::isOfTheCLibraryToo()) GTEST_SKIP() << "the C library has no German locale here";
}

TEST_F(Files, AreCopiedToNewOnesOnly) {
    const std::wstring from = m_folder.write(L"from", std::string(100000, 'x'));
    copyToNewFile(from, m_folder.file(L"to"));
    EXPECT_EQ(m_folder.read(L"to"), std::string(100000, 'x'));
    m_folder.write(L"there", "kept");
    const std::wstring there = m_folder.file(L"there");
    EXPECT_EQ(fileErrorOf([&] { copyToNewFile(from, there); }), L"Can not write file " + there + L": File exists");
    EXPECT_EQ(m_folder.read(L"there"), "kept");
    const std::wstring none = m_folder.file(L"none");
    EXPECT_EQ(fileErrorOf([&] { copyToNewFile(none, m_folder.file(L"x")); }),
              L"Can not read file " + none + L": No such file or directory");
    EXPECT_FALSE(m_folder.has(L"x"));
}

TEST_F(Files, StandInFoldersThatAreMade) {
    EXPECT_TRUE(makeFolder(m_folder.file(L"a")));
    EXPECT_TRUE(makeFolder(m_folder.file(L"a")));
    EXPECT_FALSE(makeFolder(m_folder.file(L"b/c")));
    EXPECT_TRUE(makeFolders(m_folder.file(L"b/c/d")));
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.path() / "b" / "c" / "d"));
    m_folder.write(L"file", "");
    EXPECT_FALSE(makeFolder(m_folder.file(L"file")));
    EXPECT_FALSE(makeFolders(m_folder.file(L"file/below/it")));
    EXPECT_FALSE(makeFolders(L""));
}

}  // namespace
