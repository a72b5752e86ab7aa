#include <map>
#include <sstream>

#ifndef _WIN32
#include <unistd.h>
#endif

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/VirtualDevices.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/TestDocument.h"

namespace {

/// Answers queries from a device file.
class DevicePlayer {
public:
    explicit DevicePlayer(const std::filesystem::path& file) {
        std::istringstream in(TemporaryFolder::readFile(file));
        for (std::string line; std::getline(in, line);) {
            const std::size_t tab = line.find('\t');
            if (tab == std::string::npos) throw std::runtime_error("no reply in: " + line);
            m_replies[line.substr(0, tab)].push_back(line.substr(tab + 1));
        }
    }
    std::vector<std::string> ask(const std::string& query) const {
        const auto found = m_replies.find(query);
        return found == m_replies.end() ? std::vector<std::string>() : found->second;
    }
    std::string askForText(const std::string& query) const {
        std::string text;
        for (const std::string& line : ask(query)) text += line + '\n';
        return text;
    }

private:
    std::map<std::string, std::vector<std::string>> m_replies;
};

class FakeProjectors : public testing::Test {
protected:
    void load(const std::string& value) {
        const EnvironmentVariable hook("UL_VIRTUAL_PROJECTOR", value);
        const EnvironmentVariable noCameras("UL_VIRTUAL_CAMERA");
        const TemporaryFolder files;
        loadedManager(files.write(L"a.skorrax", fileText()));
    }
    std::filesystem::path deviceFile(const std::string& family, int number) const {
        return folder.path() / "ULVD" / (family + "-fake-" + std::to_string(number) + ".device");
    }

    TemporaryFolder folder;
#ifdef _WIN32
    EnvironmentVariable temporary{"TMP", folder.path().string()};
#else
    EnvironmentVariable temporary{"TMPDIR", folder.path().string()};
#endif
    EnvironmentVariable published{"VIRTUAL_DEVICE_PATH"};
};

}  // namespace

TEST_F(FakeProjectors, TwelveOfEachFamilyAreWrittenAndTheirFolderPublished) {
    load("FAKE");
    for (int i = 0; i < 12; ++i) {
        EXPECT_TRUE(std::filesystem::exists(deviceFile("VELDAR", i)));
        EXPECT_TRUE(std::filesystem::exists(deviceFile("Brenmoor", i)));
    }
    EXPECT_EQ(
        std::distance(std::filesystem::directory_iterator(folder.path() / "ULVD"), std::filesystem::directory_iterator()),
        24);
    EXPECT_EQ(published.value(), (folder.path() / "ULVD").string());
}

TEST_F(FakeProjectors, OtherValuesWriteNothing) {
    load("yes");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "ULVD"));
    EXPECT_FALSE(published.value().has_value());
}

TEST_F(FakeProjectors, DocumentIsNotChanged) {
    const EnvironmentVariable hook("UL_VIRTUAL_PROJECTOR", "fake");
    const EnvironmentVariable noCameras("UL_VIRTUAL_CAMERA");
    const TestDocument document(
        fileText("<Projector ID=\"1\"><DeviceSnippet><device UID=\"x\"><connection/></device>"
                 "</DeviceSnippet></Projector>"));
    XMLConfig::detail::applyVirtualDevices(*document);
    EXPECT_FALSE(document->isDirty());
}

TEST_F(FakeProjectors, FilesOfAnEarlierRunAreWrittenOver) {
    std::filesystem::create_directory(folder.path() / "ULVD");
    std::ofstream(deviceFile("VELDAR", 3)) << "old";
    load("fake");
    EXPECT_EQ(DevicePlayer(deviceFile("VELDAR", 3)).ask("PWR?").size(), 1u);
}

TEST_F(FakeProjectors, FirstFamilyAnswersItsQueries) {
    load("fake");
    const DevicePlayer player(deviceFile("VELDAR", 11));
    for (const char* query : {"ADR?", "FCT?", "SST?", "PNG?", "png?", "PWR?", "SIN?", "SHU?", "OTR?", "EBL?", "WPS?"})
        EXPECT_FALSE(player.ask(query).empty()) << query;
    EXPECT_TRUE(player.ask("MNU?").empty());
    const std::string status = player.askForText("SST?");
    EXPECT_EQ(player.ask("SST?").size(), 4u);
    EXPECT_NE(status.find("\"1920 x 1200\""), std::string::npos);
    EXPECT_NE(status.find("\"00:11:22:33:44::0b\""), std::string::npos);
    EXPECT_NE(status.find("Warp Module Temperature"), std::string::npos);
    EXPECT_NE(status.find("Main Software"), std::string::npos);
}

TEST_F(FakeProjectors, SecondFamilyAnswersItsQueries) {
    load("fake");
    const DevicePlayer player(deviceFile("Brenmoor", 4));
    for (const char* query : {"ADR?", "NET+MAC0?", "FCT?", "SST+VERS?", "OTR?", "OTR+HRES?", "OTR+VRES?", "PNG?",
                              "WRP+VERS2?", "PWR?", "SIN?", "SHU?", "MNU?"})
        EXPECT_EQ(player.ask(query).size(), 1u) << query;
    EXPECT_TRUE(player.ask("EBL?").empty());
    EXPECT_NE(player.askForText("NET+MAC0?").find("\"00:11:22:33:44::04\""), std::string::npos);
    EXPECT_NE(player.askForText("OTR+HRES?").find("1920"), std::string::npos);
    EXPECT_NE(player.askForText("OTR+VRES?").find("1200"), std::string::npos);
}

TEST_F(FakeProjectors, FolderThatCannotBeMadeIsTold) {
    std::ofstream(folder.path() / "ULVD") << "a file in the way";
    EXPECT_THROW(load("fake"), CorvaneException);
}

#ifndef _WIN32

TEST_F(FakeProjectors, AreNotWrittenThroughALink) {
    const TemporaryFolder elsewhere;
    std::filesystem::create_directory_symlink(elsewhere.path(), folder.path() / "ULVD");
    load("fake");
    EXPECT_EQ(elsewhere.entries(), 0u);
    const std::string own = published.value().value_or("");
    EXPECT_EQ(own, (folder.path() / "ULVD-").string() + std::to_string(::geteuid()));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(own), std::filesystem::directory_iterator()), 24);
}

#endif
