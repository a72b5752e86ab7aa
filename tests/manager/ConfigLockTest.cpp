#include "manager/ConfigLock.h"

#include <gtest/gtest.h>

#include "store/ConfigInfo.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

using XMLConfig::ConfigBusyException;
using XMLConfig::ConfigLock;

TEST(ConfigLock, WaitsAndSaysForWhom) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"hall.skorrax");
    const ConfigLock held(path);
    try {
        const ConfigLock second(path, std::chrono::milliseconds(20));
        ADD_FAILURE() << "the lock has two holders";
    } catch (const ConfigBusyException& busy) {
        const std::wstring process = std::to_wstring(busy.getProcess());
        EXPECT_GT(busy.getProcess(), 0);
        EXPECT_EQ(busy.getReason(),
                  path + L" is being written by another part of this program (process " + process + L"), waited 20 ms");
        EXPECT_EQ(busy.getMessage(), L"Error ConfigLock: " + busy.getReason());
    }
}

TEST(ConfigLock, PatienceBelowNothingIsNone) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"hall.skorrax");
    const ConfigLock held(path);
    const std::wstring message = messageOf([&] { const ConfigLock second(path, std::chrono::milliseconds(-5)); });
    EXPECT_EQ(message.substr(message.rfind(L',')), L", waited 0 s");
}

TEST(ConfigLock, SavesNeedNoneAndAreNotKeptFromIt) {
    const TemporaryFolder folder;
    ConfigInfo document(folder.write(L"hall.skorrax", currentFile("<S><A>1</A></S>")));
    const ConfigLock held(folder.file(L"hall.skorrax"));
    EXPECT_TRUE(document.save(folder.file(L"hall.skorrax")));
    EXPECT_NO_THROW(ConfigInfo(folder.file(L"hall.skorrax")));
    EXPECT_EQ(folder.entries(), 1u);
}

TEST(ConfigLock, FolderThatIsNotThereIsTold) {
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"missing") + L"/hall.skorrax";
    EXPECT_EQ(messageOf([&] { const ConfigLock lock(path); }),
              L"Error ConfigLock: Can not lock the folder of file " + path + L": No such file or directory");
}
