#include <cerrno>
#include <cstring>

#include "tests/store/StoreSupport.h"

#ifdef __linux__
#include <sys/mount.h>
#endif

namespace fs = std::filesystem;

namespace storetests {

namespace {

const std::wstring saveError = L"Error save(): An error occurred trying to save DOM tree to file. Msg is:";

}  // namespace

TEST(FailedSave, IntoAMissingFolder) {
    const TemporaryFolder folder;
    const Document document = smallDocument();
    set(*document, L"S", L"A", L"new", L"1");
    const Untouched before(*document);
    EXPECT_STARTS_WITH(messageOf([&] { document->save(folder.file(L"none/a.skorrax")); }), saveError);
    EXPECT_TRUE(before.unchanged());
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(FailedSave, OntoAFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "sub");
    const Document document = smallDocument();
    document->setDirty(true);
    EXPECT_STARTS_WITH(messageOf([&] { document->save(folder.file(L"sub")); }), saveError);
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(folder.entries(), 1u);
    EXPECT_TRUE(fs::is_empty(folder.path() / "sub"));
}

TEST(FailedSave, OntoAReadOnlyFile) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", "old");
    fs::permissions(pathOf(path), fs::perms(0444));
    const Document document = smallDocument();
    const Untouched before(*document);
    EXPECT_STARTS_WITH(messageOf([&] { document->save(path); }), saveError);
    EXPECT_TRUE(before.unchanged());
    EXPECT_EQ(folder.read(L"a.skorrax"), "old");
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(FailedSave, LeavesACleanDocumentClean) {
    const Document document = smallDocument();
    (void)messageOf([&] { document->save(L"/no such folder/a.skorrax"); });
    EXPECT_FALSE(document->isDirty());
}

#ifndef _WIN32

TEST(FailedSave, ThroughALinkThatCannotBeFollowed) {
    const TemporaryFolder folder;
    fs::create_symlink("none/real.skorrax", folder.path() / "broken.skorrax");
    fs::create_symlink("loop.skorrax", folder.path() / "loop.skorrax");
    const Document document = smallDocument();
    document->setDirty(true);
    for (const wchar_t* name : {L"broken.skorrax", L"loop.skorrax"}) {
        EXPECT_STARTS_WITH(messageOf([&] { document->save(folder.file(name)); }), saveError);
        EXPECT_TRUE(document->isDirty());
        EXPECT_TRUE(fs::is_symlink(fs::symlink_status(pathOf(folder.file(name)))));
    }
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(FailedSave, IntoAnUnwritableFolder) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0555));
    const Document document = smallDocument();
    const Untouched before(*document);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.active());
        EXPECT_STARTS_WITH(messageOf([&] { document->save(folder.file(L"a.skorrax")); }), saveError);
    }
    EXPECT_TRUE(before.unchanged());
    EXPECT_EQ(folder.entries(), 0u);
}

TEST(SaveIntoAFolderOfNoSecondFile, WritesTheFileItself) {
    const TemporaryFolder folder;
    const auto path = folder.write(L"a.skorrax", "<ConfigInfo><S><A>" + std::string(5000, 'o') + "</A></S></ConfigInfo>");
    fs::permissions(pathOf(path), fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(0555));
    const Document document = smallDocument();
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.active());
        EXPECT_TRUE(document->save(path));
    }
    EXPECT_EQ(folder.read(L"a.skorrax"), savedText(*document));
    EXPECT_EQ(folder.entries(), 1u);
}

#endif

#ifdef __linux__

TEST(FailedSave, OntoAFullDevice) {
    const Document document = smallDocument();
    const Untouched before(*document);
    EXPECT_STARTS_WITH(messageOf([&] { document->save(L"/dev/full"); }), saveError);
    EXPECT_TRUE(before.unchanged());
}

/// A disk of 64 KiB mounted on a folder of its own.
class SmallDisk {
public:
    SmallDisk() : m_mounted(mount("tmpfs", m_folder.path().c_str(), "tmpfs", 0, "size=64k") == 0), m_error(errno) {}
    ~SmallDisk() {
        if (m_mounted) umount2(m_folder.path().c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool mounted() const { return m_mounted; }
    std::string error() const { return std::strerror(m_error); }
    const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
    bool m_mounted;
    int m_error;
};

TEST(FailedSave, OntoAFullDisk) {
    const SmallDisk disk;
    if (!disk.mounted()) GTEST_SKIP() << "no small disk can be mounted here: " << disk.error();
    const TemporaryFolder& folder = disk.folder();
    const Document document = smallDocument();
    const auto path = folder.file(L"a.skorrax");
    EXPECT_TRUE(document->save(path));
    const std::string old = folder.read(L"a.skorrax");
    set(*document, L"S", L"A", std::wstring(100000, L'x'), L"1");
    const Untouched before(*document);
    EXPECT_STARTS_WITH(messageOf([&] { document->save(path); }), saveError);
    EXPECT_TRUE(before.unchanged());
    EXPECT_TRUE(document->isDirty());
    EXPECT_EQ(folder.read(L"a.skorrax"), old);
    EXPECT_EQ(folder.entries(), 1u);
    EXPECT_STARTS_WITH(messageOf([&] { document->save(folder.file(L"new.skorrax")); }), saveError);
    EXPECT_EQ(folder.entries(), 1u);
}

#endif

}  // namespace storetests
