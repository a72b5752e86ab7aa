#include "store/FileChange.h"

#include <random>

#include <gmock/gmock.h>

#include "store/ContentHash.h"
#include "store/DocumentSaving.h"
#include "store/FileState.h"
#include "tests/store/StoreSupport.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Thrown.h"

namespace storetests {

using testing::ElementsAre;
using testing::IsEmpty;
using XMLConfig::hasFileChanged;
using XMLConfig::detail::ContentHash;

namespace {

const std::string small = currentFile("<S><A>1</A></S>");
const std::string sameSize = currentFile("<S><A>2</A></S>");

LogLine overwritten(const TemporaryFolder& folder) {
    return {"Ulvano.XMLConfig.ConfigInfo", "WARN",
            "save(): " + folder.at(L"a.skorrax").string() +
                " was changed on the disk after this document was loaded or saved; the save overwrites that change"};
}

/// The file looks as if it had been written long ago; only the time of its last change cannot be set.
void makeOld(const std::filesystem::path& file) {
    std::filesystem::last_write_time(file, std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
}

bool makeLink(const std::filesystem::path& link, const std::filesystem::path& target) {
    std::error_code error;
    std::filesystem::create_symlink(target, link, error);
    return !error;
}

}  // namespace

TEST(FileChange, DocumentWithoutAFileHasNone) { EXPECT_FALSE(hasFileChanged(ConfigInfo())); }

TEST(FileChange, IsSeenAfterALoad) {
    const TemporaryFolder folder;
    const ConfigInfo document(folder.write(L"a.skorrax", small));
    EXPECT_FALSE(hasFileChanged(document));
    folder.write(L"a.skorrax", sameSize);
    EXPECT_TRUE(hasFileChanged(document));
}

TEST(FileChange, IsSeenAfterASave) {
    const TemporaryFolder folder;
    ConfigInfo document;
    document.save(folder.file(L"a.skorrax"));
    EXPECT_FALSE(hasFileChanged(document));
    folder.write(L"a.skorrax", small);
    EXPECT_TRUE(hasFileChanged(document));
    document.save(folder.file(L"a.skorrax"));
    EXPECT_FALSE(hasFileChanged(document));
}

TEST(FileChange, SameBytesAreNone) {
    const TemporaryFolder folder;
    const ConfigInfo document(folder.write(L"a.skorrax", small));
    folder.write(L"b", small);
    std::filesystem::rename(folder.at(L"b"), folder.at(L"a.skorrax"));
    EXPECT_FALSE(hasFileChanged(document));
    EXPECT_FALSE(hasFileChanged(document));
}

TEST(FileChange, TimesThatWereSetBackHideNothing) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", small);
    makeOld(folder.at(L"a.skorrax"));
    const auto time = std::filesystem::last_write_time(folder.at(L"a.skorrax"));
    const ConfigInfo document(path);
    folder.write(L"a.skorrax", sameSize);
    std::filesystem::last_write_time(folder.at(L"a.skorrax"), time);
    EXPECT_TRUE(hasFileChanged(document));
}

TEST(FileChange, FileThatIsGoneHasChanged) {
    const TemporaryFolder folder;
    ConfigInfo document(folder.write(L"a.skorrax", small));
    std::filesystem::remove(folder.at(L"a.skorrax"));
    EXPECT_TRUE(hasFileChanged(document));
    const LogCapture log;
    document.save(folder.file(L"a.skorrax"));
    EXPECT_THAT(log.lines(), IsEmpty());
    EXPECT_FALSE(hasFileChanged(document));
}

TEST(FileChange, OtherFilesDoNotMatter) {
    const TemporaryFolder folder;
    ConfigInfo document(folder.write(L"a.skorrax", small));
    folder.write(L"b.skorrax", sameSize);
    const LogCapture log;
    document.save(folder.file(L"b.skorrax"));
    EXPECT_THAT(log.lines(), IsEmpty());
    folder.write(L"a.skorrax", sameSize);
    EXPECT_FALSE(hasFileChanged(document));
}

TEST(FileChange, LoadThatFailsKnowsNoFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", "<ConfigInfo>");
    EXPECT_THROW(ConfigInfo{path}, CorvaneException);
}

TEST(FileChange, SaveThatOverwritesItWarnsOnce) {
    const TemporaryFolder folder;
    ConfigInfo document(folder.write(L"a.skorrax", small));
    const LogCapture log;
    document.save(folder.file(L"a.skorrax"));
    EXPECT_THAT(log.lines(), IsEmpty());
    folder.write(L"a.skorrax", sameSize);
    document.save(folder.file(L"a.skorrax"));
    document.save(folder.file(L"a.skorrax"));
    EXPECT_THAT(log.lines(), ElementsAre(overwritten(folder)));
}

TEST(FileChange, OtherSpellingsOfThePathAreTheSameFile) {
    const TemporaryFolder folder;
    ConfigInfo document(folder.write(L"a.skorrax", small));
    folder.write(L"a.skorrax", sameSize);
    const LogCapture log;
    document.save(wideOf(folder.path()) + L"\\.//a.skorrax");
    EXPECT_EQ(log.lines().size(), 1u);
}

TEST(FileChange, LinksLeadToTheSameFile) {
    const TemporaryFolder folder;
    const std::wstring file = folder.write(L"a.skorrax", small);
    if (!makeLink(folder.at(L"link.skorrax"), "a.skorrax")) GTEST_SKIP() << "needs the right to make links";
    const auto warningsOf = [&](const std::wstring& loaded, const std::wstring& saved) {
        folder.write(L"a.skorrax", small);
        ConfigInfo document(loaded);
        folder.write(L"a.skorrax", sameSize);
        const LogCapture log;
        document.save(saved);
        return log.lines().size();
    };
    EXPECT_EQ(warningsOf(file, folder.file(L"link.skorrax")), 1u);
    EXPECT_EQ(warningsOf(folder.file(L"link.skorrax"), file), 1u);
}

TEST(FileChange, CopyByALinkIsOneOfTheFileItself) {
    const TemporaryFolder folder;
    ConfigInfo document(folder.write(L"a.skorrax", small));
    if (!makeLink(folder.at(L"link.skorrax"), "a.skorrax")) GTEST_SKIP() << "needs the right to make links";
    document.setStringItem(L"S", L"A", L"3", {}, {}, {});
    XMLConfig::detail::saveCopy(document, folder.file(L"link.skorrax"));
    EXPECT_FALSE(hasFileChanged(document));
}

TEST(FileChange, RelativeNameMeansTheFolderThatWasCurrent) {
    const TemporaryFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    folder.write(L"a.skorrax", small);
    std::filesystem::current_path(folder.path());
    const ConfigInfo document(L"a.skorrax");
    std::filesystem::current_path(before);
    EXPECT_FALSE(hasFileChanged(document));
    folder.write(L"a.skorrax", sameSize);
    EXPECT_TRUE(hasFileChanged(document));
}

TEST(ContentHash, DoesNotDependOnThePieces) {
    std::mt19937 random(7);
    std::string bytes;
    for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(random());
    ContentHash whole;
    whole.add(bytes);
    for (int round = 0; round < 200; ++round) {
        ContentHash pieces;
        for (std::size_t at = 0; at < bytes.size();) {
            const std::size_t size = random() % 20;
            pieces.add(std::string_view(bytes).substr(at, size));
            at += size;
        }
        ASSERT_EQ(pieces.value(), whole.value());
    }
}

TEST(ContentHash, TellsContentsApart) {
    const std::string bytes(64, '\0');
    std::vector<std::uint64_t> seen;
    for (std::size_t size = 0; size <= bytes.size(); ++size) {  // what differs in its length only
        ContentHash hash;
        hash.add(std::string_view(bytes).substr(0, size));
        seen.push_back(hash.value());
    }
    for (std::size_t at = 0; at < bytes.size(); ++at) {  // in one bit only
        std::string other = bytes;
        other[at] = 1;
        ContentHash hash;
        hash.add(other);
        seen.push_back(hash.value());
    }
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ(std::adjacent_find(seen.begin(), seen.end()), seen.end());
}

}  // namespace storetests
