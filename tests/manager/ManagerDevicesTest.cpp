#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sections/CameraConfig.h"
#include "sections/ProjectorConfig.h"
#include "store/CorvaneException.h"
#include "tests/manager/TestManager.h"
#include "tests/support/DocumentTexts.h"
#include "tests/support/LogCapture.h"
#include "tests/support/ManagerLine.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Thrown.h"

using testing::ElementsAre;
using XMLConfig::tests::storedText;

TEST(ManagerDevices, IDsAreTheDocumentsBeforeAnAccessorIsAskedFor) {
    const TemporaryFolder folder;
    const auto manager = loadedManager(
        folder.write(L"hall.skorrax",
                     fileText("<Camera ID=\"b\"/><Projector ID=\"p\"/><Camera ID=\"a\"/><Camera/><Projector ID=\"o\"/>")));
    EXPECT_THAT(manager->getCameraIDs(), ElementsAre(L"b", L"a"));
    EXPECT_THAT(manager->getProjectorIDs(), ElementsAre(L"p", L"o"));
    EXPECT_EQ(manager->getCameraConfigCount(), 3);
    EXPECT_EQ(manager->getProjectorConfigCount(), 2);
    EXPECT_FALSE(manager->isConfigDirty());
}

TEST(ManagerDevices, UnknownDeviceIsAddedWithItsInitialValues) {
    TestManager manager;
    ProjectorConfig* projector = manager.getProjectorConfig(L"new");
    CameraConfig* camera = manager.getCameraConfig(L"new");
    EXPECT_EQ(projector->getSectionName(), L"Projector");
    EXPECT_EQ(projector->getSectionID(), L"new");
    EXPECT_EQ(camera->getSectionName(), L"Camera");
    EXPECT_EQ(camera->getSectionID(), L"new");
    EXPECT_EQ(manager.getProjectorConfigCount(), 1);
    EXPECT_EQ(manager.getCameraConfigCount(), 1);
    EXPECT_EQ(storedText(manager.document, L"Projector", L"Name", L"new"), L"Channel_new");
    EXPECT_EQ(storedText(manager.document, L"Projector", L"Resolution_X", L"new"), L"1400");
    EXPECT_TRUE(manager.isConfigDirty());
}

TEST(ManagerDevices, KnownDeviceIsNotInitialisedAgain) {
    TestManager manager;
    manager.document.setStringItem(L"Projector", L"Name", L"left", L"1", L"", L"");
    manager.document.setStringItem(L"Camera", L"X", L"y", L"1", L"", L"");
    manager.setConfigDirty(false);
    EXPECT_EQ(manager.getProjectorConfig(L"1")->getName(), L"left");
    manager.getCameraConfig(L"1");
    EXPECT_EQ(storedText(manager.document, L"Projector", L"Resolution_X", L"1"), std::nullopt);
    EXPECT_FALSE(manager.isConfigDirty());
}

TEST(ManagerDevices, SameAccessorEachTime) {
    TestManager manager;
    CameraConfig* camera = manager.getCameraConfig(L"a");
    ProjectorConfig* projector = manager.getProjectorConfig(L"a");
    EXPECT_EQ(manager.getCameraConfig(L"a"), camera);
    EXPECT_NE(manager.getCameraConfig(L"b"), camera);
    EXPECT_EQ(manager.getProjectorConfig(L"a"), projector);
    EXPECT_NE(manager.getProjectorConfig(L"b"), projector);
}

TEST(ManagerDevices, RefusedIDAddsNothing) {
    TestManager manager;
    EXPECT_EQ(messageOf([&] { manager.getCameraConfig(L"a\x0002"); }).rfind(L"Error ", 0), 0u);
    EXPECT_EQ(manager.getCameraConfigCount(), 0);
    EXPECT_EQ(messageOf([&] { manager.getCameraConfig(L"a\x0002"); }).rfind(L"Error ", 0), 0u);
}

TEST(ManagerDevices, RenameToTheSameIDSucceedsWithoutADevice) {
    LogCapture log;
    TestManager manager;
    EXPECT_TRUE(manager.renameCameraConfig(L"a", L"a"));
    EXPECT_TRUE(manager.renameProjectorConfig(L"a", L"a"));
    EXPECT_EQ(manager.getCameraConfigCount(), 0);
    EXPECT_THAT(log.lines(), ElementsAre());
}

TEST(ManagerDevices, RenameNeedsAnAccessor) {
    LogCapture log;
    TestManager manager;
    manager.document.setStringItem(L"Camera", L"X", L"y", L"a", L"", L"");
    manager.document.setStringItem(L"Projector", L"X", L"y", L"a", L"", L"");
    EXPECT_FALSE(manager.renameCameraConfig(L"a", L"b"));
    EXPECT_FALSE(manager.renameProjectorConfig(L"a", L"b"));
    EXPECT_THAT(manager.getCameraIDs(), ElementsAre(L"a"));
    EXPECT_THAT(manager.getProjectorIDs(), ElementsAre(L"a"));
    EXPECT_THAT(log.lines(), ElementsAre());
}

TEST(ManagerDevices, RenamedDeviceIsKnownUnderItsNewID) {
    LogCapture log;
    TestManager manager;
    CameraConfig* camera = manager.getCameraConfig(L"a");
    ProjectorConfig* projector = manager.getProjectorConfig(L"a");
    log.clear();
    EXPECT_TRUE(manager.renameCameraConfig(L"a", L"b"));
    EXPECT_TRUE(manager.renameProjectorConfig(L"a", L"c"));
    EXPECT_THAT(
        log.lines(),
        ElementsAre(info("Remapped camera id from a to b (expected if loading a .cal file where a camera was swapped)"),
                    info("Remapped projector id from a to c (expected if loading a .cal file where a projector was "
                         "swapped)")));
    EXPECT_EQ(manager.getCameraConfig(L"b"), camera);
    EXPECT_EQ(manager.getProjectorConfig(L"c"), projector);
    EXPECT_EQ(camera->getSectionID(), L"b");
    EXPECT_EQ(storedText(manager.document, L"Camera", L"OldSectionID", L"b"), L"a");
    EXPECT_EQ(storedText(manager.document, L"Projector", L"OldSectionID", L"c"), L"a");
    EXPECT_THAT(manager.getCameraIDs(), ElementsAre(L"b"));
    EXPECT_THAT(manager.getProjectorIDs(), ElementsAre(L"c"));
    EXPECT_FALSE(manager.renameCameraConfig(L"a", L"d"));
}

TEST(ManagerDevices, RenameTakesAnAccessorsOwnID) {
    LogCapture log;
    TestManager manager;
    CameraConfig* camera = manager.getCameraConfig(L"a");
    log.clear();
    EXPECT_TRUE(manager.renameCameraConfig(camera->getSectionID(), L"b"));
    EXPECT_THAT(log.lines(),
                ElementsAre(info("Remapped camera id from a to b (expected if loading a .cal file where a camera "
                                 "was swapped)")));
    EXPECT_TRUE(manager.removeCameraConfig(camera->getSectionID()));
    EXPECT_EQ(log.lines().back(), info("removeCameraConfig('b') returned: true"));
}

TEST(ManagerDevices, CameraRenamedOntoAnotherDisplacesItsAccessor) {
    TestManager manager;
    CameraConfig* first = manager.getCameraConfig(L"a");
    CameraConfig* second = manager.getCameraConfig(L"b");
    EXPECT_TRUE(manager.renameCameraConfig(L"a", L"b"));
    EXPECT_EQ(manager.getCameraConfig(L"b"), first);
    EXPECT_THAT(manager.getCameraIDs(), ElementsAre(L"b", L"b"));
    EXPECT_EQ(second->getSectionID(), L"b");
    EXPECT_TRUE(second->removeSection());
    EXPECT_EQ(manager.getCameraConfigCount(), 1);
}

TEST(ManagerDevices, ProjectorIsNotRenamedOntoAnother) {
    LogCapture log;
    TestManager manager;
    ProjectorConfig* first = manager.getProjectorConfig(L"a");
    ProjectorConfig* second = manager.getProjectorConfig(L"b");
    log.clear();
    EXPECT_FALSE(manager.renameProjectorConfig(L"a", L"b"));
    EXPECT_EQ(manager.getProjectorConfig(L"a"), first);
    EXPECT_EQ(manager.getProjectorConfig(L"b"), second);
    EXPECT_THAT(manager.getProjectorIDs(), ElementsAre(L"a", L"b"));
    EXPECT_THAT(log.lines(), ElementsAre());
}

TEST(ManagerDevices, ProjectorIsRenamedOntoOneNeverAskedFor) {
    TestManager manager;
    manager.document.setStringItem(L"Projector", L"Name", L"left", L"b", L"", L"");
    manager.getProjectorConfig(L"a");
    EXPECT_TRUE(manager.renameProjectorConfig(L"a", L"b"));
    EXPECT_THAT(manager.getProjectorIDs(), ElementsAre(L"b", L"b"));
}

TEST(ManagerDevices, RefusedRenameChangesNothing) {
    LogCapture log;
    TestManager manager;
    CameraConfig* camera = manager.getCameraConfig(L"a");
    log.clear();
    EXPECT_EQ(messageOf([&] { manager.renameCameraConfig(L"a", L"\x0001"); }).rfind(L"Error ", 0), 0u);
    EXPECT_EQ(manager.getCameraConfig(L"a"), camera);
    EXPECT_THAT(manager.getCameraIDs(), ElementsAre(L"a"));
    EXPECT_THAT(log.lines(), ElementsAre());
}

TEST(ManagerDevices, RemoveNeedsAnAccessor) {
    LogCapture log;
    const TemporaryFolder folder;
    const auto manager =
        loadedManager(folder.write(L"hall.skorrax", fileText("<Camera ID=\"a\"/><Camera ID=\"b\"/><Projector ID=\"p\"/>")));
    log.clear();
    EXPECT_FALSE(manager->removeCameraConfig(L"a"));
    EXPECT_FALSE(manager->removeProjectorConfig(L"p"));
    EXPECT_THAT(manager->getCameraIDs(), ElementsAre(L"a", L"b"));
    EXPECT_THAT(manager->getProjectorIDs(), ElementsAre(L"p"));
    EXPECT_THAT(log.lines(), ElementsAre(info("removeCameraConfig('a') returned: false"),
                                         info("removeProjectorConfig('p') returned: false")));
}

TEST(ManagerDevices, RemovedDeviceIsGoneAndCanBeMadeAnew) {
    LogCapture log;
    TestManager manager;
    manager.getCameraConfig(L"a");
    manager.getProjectorConfig(L"p")->setName(L"left");
    log.clear();
    EXPECT_TRUE(manager.removeCameraConfig(L"a"));
    EXPECT_TRUE(manager.removeProjectorConfig(L"p"));
    EXPECT_THAT(log.lines(), ElementsAre(info("removeCameraConfig('a') returned: true"),
                                         info("removeProjectorConfig('p') returned: true")));
    EXPECT_EQ(manager.getCameraConfigCount(), 0);
    EXPECT_EQ(manager.getProjectorConfigCount(), 0);
    EXPECT_FALSE(manager.removeCameraConfig(L"a"));
    EXPECT_EQ(manager.getProjectorConfig(L"p")->getName(), L"Channel_p");
}

TEST(ManagerDevices, MoveNeedsAnAccessor) {
    LogCapture log;
    TestManager manager;
    manager.document.setStringItem(L"Camera", L"X", L"y", L"a", L"", L"");
    manager.document.setStringItem(L"Camera", L"X", L"y", L"b", L"", L"");
    EXPECT_FALSE(manager.moveCameraConfig(L"a", 1));
    EXPECT_THAT(manager.getCameraIDs(), ElementsAre(L"a", L"b"));
    EXPECT_THAT(log.lines(), ElementsAre(info("moveCameraConfig('a':1) returned: false")));
}

TEST(ManagerDevices, MoveSwapsNeighboursOfTheSameKind) {
    LogCapture log;
    TestManager manager;
    manager.getProjectorConfig(L"p");
    manager.getCameraConfig(L"a");
    manager.getProjectorConfig(L"q");
    manager.getCameraConfig(L"b");
    log.clear();
    EXPECT_TRUE(manager.moveCameraConfig(L"b", -1));
    EXPECT_FALSE(manager.moveCameraConfig(L"b", -1));
    EXPECT_TRUE(manager.moveProjectorConfig(L"p", 1));
    EXPECT_FALSE(manager.moveProjectorConfig(L"p", 2));
    EXPECT_THAT(
        log.lines(),
        ElementsAre(info("moveCameraConfig('b':-1) returned: true"), info("moveCameraConfig('b':-1) returned: false"),
                    info("moveProjectorConfig('p':1) returned: true"), info("moveProjectorConfig('p':2) returned: false")));
    EXPECT_THAT(manager.getCameraIDs(), ElementsAre(L"b", L"a"));
    EXPECT_THAT(manager.getProjectorIDs(), ElementsAre(L"q", L"p"));
}

TEST(ManagerDevices, LogNamesIDsOutsideAscii) {
    LogCapture log;
    TestManager manager;
    EXPECT_FALSE(manager.removeCameraConfig(L"B\u00fchne \u65e5\u672c"));
    EXPECT_THAT(log.lines(),
                ElementsAre(info("removeCameraConfig('B\xC3\xBChne \xE6\x97\xA5\xE6\x9C\xAC') returned: false")));
}
