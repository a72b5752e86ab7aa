#include "manager/UpgradeFile.h"

#include <atomic>
#include <functional>
#include <iterator>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "manager/upgrade/UpgradeChain.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

using XMLConfig::upgradeFile;
using XMLConfig::detail::upgradeChain;

TEST(UpgradeFile, InPlaceKeepsTheOldFileBesideIt) {
    const TemporaryFolder folder;
    const std::string old = fileText("<Screen><Unit>Feet</Unit></Screen>", "1.5");
    const std::wstring path = folder.write(L"hall.skorra", old);
    const auto report = upgradeFile({path});
    EXPECT_EQ(report.status, XMLConfig::Upgraded);
    EXPECT_EQ(report.target, path);
    EXPECT_EQ(report.backup, path + L".v1.500.bak");
    EXPECT_EQ(report.receipt.steps.size(), std::size(upgradeChain));
    EXPECT_EQ(folder.read(L"hall.skorra.v1.500.bak"), old);
    EXPECT_EQ(ConfigInfo(path).getVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, BackupsAreNeverOverwritten) {
    const TemporaryFolder folder;
    folder.write(L"a.skorrax.v8.000.bak", "first");
    folder.write(L"a.skorrax.v8.000.bak.2", "second");
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "8.0"));
    EXPECT_EQ(upgradeFile({path}).backup, path + L".v8.000.bak.3");
    EXPECT_EQ(folder.read(L"a.skorrax.v8.000.bak"), "first");
    EXPECT_EQ(folder.read(L"a.skorrax.v8.000.bak.2"), "second");
    EXPECT_EQ(folder.read(L"a.skorrax.v8.000.bak.3"), fileText("", "8.0"));
}

TEST(UpgradeFile, OtherTargetLeavesTheOldFileAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"old.skorra", fileText("", "2.0"));
    const auto report = upgradeFile({path, folder.file(L"new.skorrax")});
    EXPECT_EQ(report.target, folder.file(L"new.skorrax"));
    EXPECT_EQ(report.backup, L"");
    EXPECT_EQ(folder.read(L"old.skorra"), fileText("", "2.0"));
    EXPECT_EQ(ConfigInfo(folder.file(L"new.skorrax")).getVersion(), XMLConfig::detail::latestFileVersion);
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, TargetThatExistsIsRefused) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"old.skorra", fileText("", "2.0"));
    const std::wstring target = folder.write(L"new.skorrax", "precious");
    EXPECT_EQ(messageOf([&] { upgradeFile({path, target}); }), L"Error upgradeFile: " + target + L": exists already");
    EXPECT_EQ(folder.read(L"new.skorrax"), "precious");
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, LatestVersionIsLeftAloneInPlace) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText());
    const auto report = upgradeFile({path});
    EXPECT_EQ(report.status, XMLConfig::NoUpgradeRequired);
    EXPECT_EQ(report.backup, L"");
    EXPECT_TRUE(report.receipt.steps.empty());
    EXPECT_EQ(folder.read(L"a.skorrax"), fileText());
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, LatestVersionIsCopiedToAnotherTarget) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText());
    upgradeFile({path, folder.file(L"b.skorrax")});
    EXPECT_EQ(folder.read(L"b.skorrax"), fileText());
}

TEST(UpgradeFile, DryRunTellsEverythingAndWritesNothing) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "1.5"));
    const auto report = upgradeFile({path, L"", false});
    EXPECT_EQ(report.status, XMLConfig::Upgraded);
    EXPECT_EQ(report.backup, path + L".v1.500.bak");
    EXPECT_EQ(report.receipt.steps.size(), std::size(upgradeChain));
    EXPECT_EQ(folder.read(L"a.skorrax"), fileText("", "1.5"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, NewerFileIsRefusedAndLeftAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "9.001"));
    EXPECT_EQ(messageOf([&] { upgradeFile({path}); }),
              L"Error upgradeFile: " + path + L": is of file version 9.001; this program knows 9.000");
    EXPECT_EQ(folder.read(L"a.skorrax"), fileText("", "9.001"));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, FileThatIsNoConfigurationIsLeftAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", "<ConfigInfo><Version>1.5</Version>");
    EXPECT_THROW(upgradeFile({path}), CorvaneException);
    EXPECT_THROW(upgradeFile({folder.file(L"missing.skorrax")}), CorvaneException);
    EXPECT_EQ(folder.read(L"a.skorrax"), "<ConfigInfo><Version>1.5</Version>");
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, TargetThatCannotBeWrittenLeavesNothingBehind) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorrax", fileText("", "1.5"));
    EXPECT_THROW(upgradeFile({path, folder.file(L"missing") + L"/b.skorrax"}), CorvaneException);
    EXPECT_EQ(folder.entries(), 1u);
}

namespace {

/// Does something when the library logs for the first time, which an upgrade does while it works.
class WhileItWorks : public log4cxx::AppenderSkeleton {
public:
    explicit WhileItWorks(std::function<void()> work) : m_work(std::move(work)) {}
    void close() override {}
    bool requiresLayout() const override { return false; }

protected:
    void append(const log4cxx::spi::LoggingEventPtr&, log4cxx::helpers::Pool&) override {
        if (m_work) std::exchange(m_work, nullptr)();
    }

private:
    std::function<void()> m_work;
};

/// What upgradeFile throws when this happens meanwhile.
std::wstring thrownWhile(const XMLConfig::UpgradeFileRequest& request, std::function<void()> work) {
    const LogCapture quiet;
    const auto appender = std::make_shared<WhileItWorks>(std::move(work));
    const log4cxx::LoggerPtr logger = log4cxx::Logger::getLogger("Ulvano");
    logger->addAppender(appender);
    const std::wstring message = messageOf([&] { upgradeFile(request); });
    logger->removeAppender(appender);
    return message;
}

}  // namespace

TEST(UpgradeFile, TargetThatAppearsMeanwhileIsRefused) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"old.skorra", fileText("", "1.5"));
    const std::wstring target = folder.file(L"new.skorrax");
    EXPECT_EQ(thrownWhile({path, target}, [&] { folder.write(L"new.skorrax", "precious"); }),
              L"Error upgradeFile: " + target + L": exists already");
    EXPECT_EQ(folder.read(L"new.skorrax"), "precious");
    EXPECT_EQ(folder.entries(), 2u);
}

TEST(UpgradeFile, FileThatIsChangedMeanwhileIsLeftAlone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"a.skorra", fileText("", "1.5"));
    const std::string theirs = fileText("<System><RunType>ClassicRun</RunType></System>");
    EXPECT_EQ(thrownWhile({path}, [&] { folder.write(L"a.skorra", theirs); }),
              L"Error upgradeFile: " + path + L": has been changed by another program meanwhile");
    EXPECT_EQ(folder.read(L"a.skorra"), theirs);
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(UpgradeFile, OneOfManyMakesTheTarget) {
    const TemporaryFolder folder;
    const std::wstring path = folder.write(L"old.skorra", fileText("", "1.5"));
    std::atomic<int> made{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            try {
                upgradeFile({path, folder.file(L"new.skorrax")});
                ++made;
            } catch (const CorvaneException&) {
            }
        });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(made, 1);
    EXPECT_EQ(folder.entries(), 2u);
}
