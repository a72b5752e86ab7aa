#include "tests/faults/Operations.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>

#include "manager/UpgradeFile.h"
#include "manager/XMLConfigManager.h"
#include "tests/support/CurrentFile.h"
#include "tests/support/SavedText.h"
#include "tests/support/TestProduct.h"
#include "tests/support/posix/OtherUser.h"

namespace faults {

namespace {

constexpr const char* attribute = "user.xmlconfig.test";
std::string textWith(const std::string& site) { return currentFile("<System><Site>" + site + "</Site></System>") + "\n"; }
const std::string latest = textWith("old");

struct State {
    std::unique_ptr<ConfigInfo> document;
    std::unique_ptr<XMLConfigManager> manager;
    std::wstring target;
    std::string newText;  ///< what the operation writes when nothing fails
    bool wasTaken = false;
};

void openDocument(State& state, Scene& scene) {
    state.document = std::make_unique<ConfigInfo>(scene.file());
    state.document->setStringItem(L"System", L"Site", L"new", {}, {}, {});
    state.newText = savedText(*state.document);
}

void openManager(State& state, Scene& scene) {
    state.manager.reset(XMLConfigManager::loadConfiguration(TestProduct::make(), scene.file()));
    state.manager->setConfigDirty(true);
}

bool isOneOf(const std::vector<std::string>& names, const std::vector<std::vector<std::string>>& allowed) {
    return std::find(allowed.begin(), allowed.end(), names) != allowed.end();
}

/// The rule for one file: the new text after a success, the old or the new one after an error, and nothing beside it.
std::string checkFile(const Scene& scene, const std::wstring& name, const std::string& oldText, const std::string& newText,
                      bool threw) {
    const bool isNew = scene.has(name, newText);
    if (!threw && !isNew) return "success told, but the new text is not there";
    const bool isOld = oldText.empty() ? !scene.folder.has(name) : scene.has(name, oldText);
    return isNew || isOld ? "" : "neither the old nor the new file stands there";
}

std::string checkDirty(bool isDirty, bool threw) {
    if (threw && !isDirty) return "an error told, but the document is clean";
    return !threw && isDirty ? "success told, but the document is dirty" : "";
}

std::string checkNames(const Scene& scene, const std::vector<std::vector<std::string>>& allowed) {
    if (isOneOf(scene.names(), allowed)) return {};
    std::string text = "a stray file:";
    for (const std::string& name : scene.names()) text += " " + name;
    return text;
}

std::string firstOf(const std::vector<std::string>& faults) {
    for (const std::string& fault : faults)
        if (!fault.empty()) return fault;
    return {};
}

const std::vector<std::vector<std::string>> justTheFile{{"hall.skorrax"}};

std::string checkSaved(const State& state, const Scene& scene, bool threw) {
    return firstOf({checkFile(scene, L"hall.skorrax", scene.oldText(), state.newText, threw),
                    scene.mode() == 0640 ? "" : "the mode is another", checkDirty(state.document->isDirty(), threw)});
}

Operation saveOver() {
    const auto state = std::make_shared<State>();
    Operation operation;
    operation.name = "save over a file";
    operation.oldText = latest;
    operation.prepare = [state](Scene& scene) { openDocument(*state, scene); };
    operation.run = [state](Scene& scene) { state->document->save(scene.file()); };
    operation.check = [state](const Scene& scene, bool threw) {
        return firstOf({checkSaved(*state, scene, threw), checkNames(scene, justTheFile)});
    };
    return operation;
}

Operation saveStraight() {
    Operation operation = saveOver();
    operation.name = "save where no second file may stand";
    operation.admitsNewFiles = false;
    operation.isAtomic = false;
    return operation;
}

Operation saveShorterStraight() {
    Operation operation = saveStraight();
    operation.name = "save a shorter text where no second file may stand";
    operation.oldText = textWith(std::string(5000, 'o'));
    return operation;
}

Operation saveNew() {
    const auto state = std::make_shared<State>();
    Operation operation;
    operation.name = "save a new file";
    operation.oldText = latest;
    operation.prepare = [state](Scene& scene) { openDocument(*state, scene); };
    operation.run = [state](Scene& scene) { state->document->save(scene.folder.file(L"new.skorrax")); };
    operation.check = [state](const Scene& scene, bool threw) {
        return firstOf({checkFile(scene, L"new.skorrax", "", state->newText, threw),
                        scene.has(L"hall.skorrax", scene.oldText()) ? "" : "another file was touched",
                        checkDirty(state->document->isDirty(), threw),
                        checkNames(scene, {{"hall.skorrax"}, {"hall.skorrax", "new.skorrax"}})});
    };
    return operation;
}

Operation saveByLink() {
    const auto state = std::make_shared<State>();
    Operation operation;
    operation.name = "save over a file by a link";
    operation.oldText = latest;
    operation.prepare = [state](Scene& scene) {
        openDocument(*state, scene);
        if (::symlink("hall.skorrax", (scene.folder.path() / "link.skorrax").c_str()) != 0) std::abort();
    };
    operation.run = [state](Scene& scene) { state->document->save(scene.folder.file(L"link.skorrax")); };
    operation.check = [state](const Scene& scene, bool threw) {
        const bool isLink = std::filesystem::is_symlink(scene.folder.path() / "link.skorrax");
        return firstOf({isLink ? "" : "the link is gone", checkSaved(*state, scene, threw),
                        checkNames(scene, {{"hall.skorrax", "link.skorrax"}})});
    };
    return operation;
}

Operation saveAttributed() {
    const auto state = std::make_shared<State>();
    Operation operation;
    operation.name = "save over a file with an attribute";
    operation.oldText = latest;
    operation.prepare = [state](Scene& scene) {
        openDocument(*state, scene);
        const std::string path = (scene.folder.path() / "hall.skorrax").string();
        state->wasTaken = ::setxattr(path.c_str(), attribute, "value", 5, 0) == 0;
    };
    operation.run = [state](Scene& scene) { state->document->save(scene.file()); };
    operation.check = [state](const Scene& scene, bool threw) {
        char value[16] = {};
        const std::string path = (scene.folder.path() / "hall.skorrax").string();
        const bool isThere = ::getxattr(path.c_str(), attribute, value, sizeof value) == 5;
        return firstOf({isThere == state->wasTaken ? "" : "the attribute is gone", checkSaved(*state, scene, threw),
                        checkNames(scene, justTheFile)});
    };
    return operation;
}

const OtherUser fileOwner{50001, {50001}};
const OtherUser stranger{50002, {0}};  // of the group that the superuser's new files get

void giveAway(const Scene& scene) {
    const std::string folder = scene.folder.path().string();
    const int result = ::chown((folder + "/hall.skorrax").c_str(), fileOwner.user, fileOwner.groups.front());
    if (result != 0 || ::chmod(folder.c_str(), 0755) != 0) std::abort();
}

/// The rule for another's file: it stays his, and nothing beside it opens to those it is closed to.
std::string checkAnothers(const Scene& scene) {
    const struct stat status = scene.status();
    if (status.st_uid != fileOwner.user || status.st_gid != fileOwner.groups.front()) return "the owner is another";
    for (const std::string& name : scene.names()) {
        const std::string path = (scene.folder.path() / name).string();
        if (holdsFor(stranger, [&path] { return ::open(path.c_str(), O_RDONLY) != -1; }))
            return "a stranger may read " + name;
    }
    return {};
}

Operation ofAnother(Operation operation) {
    operation.name += ", another's";
    operation.isOfAnother = true;
    operation.prepare = [prepare = operation.prepare](Scene& scene) {
        if (prepare) prepare(scene);
        giveAway(scene);
    };
    operation.check = [check = operation.check](const Scene& scene, bool threw) {
        return firstOf({check(scene, threw), checkAnothers(scene)});
    };
    return operation;
}

Operation copyConfiguration() {
    const auto state = std::make_shared<State>();
    Operation operation;
    operation.name = "copy a configuration";
    operation.oldText = latest;
    operation.prepare = [state](Scene& scene) {
        openManager(*state, scene);
        const TemporaryFolder other;
        state->manager->copyConfiguration(other.file(L"copy.skorrax"));
        state->newText = other.read(L"copy.skorrax");
    };
    operation.run = [state](Scene& scene) { state->manager->copyConfiguration(scene.folder.file(L"copy.skorrax")); };
    operation.check = [state](const Scene& scene, bool threw) {
        return firstOf({checkFile(scene, L"copy.skorrax", "", state->newText, threw),
                        scene.has(L"hall.skorrax", scene.oldText()) ? "" : "the source was touched",
                        state->manager->isConfigDirty() ? "" : "a copy made the configuration clean",
                        checkNames(scene, {{"hall.skorrax"}, {"copy.skorrax", "hall.skorrax"}})});
    };
    return operation;
}

std::string oldVersion() { return TemporaryFolder::readFile("examples/history/dome-1.500.skorra"); }

std::string upgradedText() {
    const TemporaryFolder folder;
    XMLConfig::UpgradeFileRequest request;
    request.path = folder.write(L"old.skorra", oldVersion());
    request.target = folder.file(L"new.skorrax");
    XMLConfig::upgradeFile(request);
    return folder.read(L"new.skorrax");
}

/// Beside the file there is a backup, or the one of an upgrade that was killed and a second one; each whole.
std::string checkBackups(const Scene& scene) {
    const std::wstring first = L"hall.skorrax.v1.500.bak";
    for (const std::wstring& backup : {first, first + L".2"})
        if (scene.folder.has(backup) && !scene.has(backup, scene.oldText())) return "a backup is not the old file";
    return checkNames(scene, {{"hall.skorrax"},
                              {"hall.skorrax", "hall.skorrax.v1.500.bak"},
                              {"hall.skorrax", "hall.skorrax.v1.500.bak", "hall.skorrax.v1.500.bak.2"}});
}

Operation upgradeInPlace() {
    Operation operation;
    operation.name = "upgrade a file, with its backup";
    operation.oldText = oldVersion();
    operation.run = [](Scene& scene) {
        XMLConfig::UpgradeFileRequest request;
        request.path = scene.file();
        XMLConfig::upgradeFile(request);
    };
    operation.check = [newText = upgradedText()](const Scene& scene, bool threw) -> std::string {
        const std::wstring backup = L"hall.skorrax.v1.500.bak";
        const bool isNew = scene.has(L"hall.skorrax", newText);
        if (isNew && !scene.has(backup, scene.oldText())) return "upgraded, but there is no backup";
        std::string fault = firstOf({checkFile(scene, L"hall.skorrax", scene.oldText(), newText, threw),
                                     scene.mode() == 0640 ? "" : "the mode is another", checkBackups(scene)});
        if (fault.empty() && !isNew && scene.folder.has(backup)) return leftBackup;
        return fault;
    };
    return operation;
}

Operation upgradeToAnother() {
    Operation operation;
    operation.name = "upgrade to another file";
    operation.oldText = oldVersion();
    operation.run = [](Scene& scene) {
        XMLConfig::UpgradeFileRequest request;
        request.path = scene.file();
        request.target = scene.folder.file(L"new.skorrax");
        XMLConfig::upgradeFile(request);
    };
    operation.check = [newText = upgradedText()](const Scene& scene, bool threw) {
        return firstOf({checkFile(scene, L"new.skorrax", "", newText, threw),
                        scene.has(L"hall.skorrax", scene.oldText()) ? "" : "the source was touched",
                        checkNames(scene, {{"hall.skorrax"}, {"hall.skorrax", "new.skorrax"}})});
    };
    return operation;
}

}  // namespace

std::vector<std::string> Scene::names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<Operation> operations() {
    std::vector<Operation> all{saveOver(),       saveStraight(),      saveShorterStraight(), saveNew(),         saveByLink(),
                               saveAttributed(), copyConfiguration(), upgradeInPlace(),      upgradeToAnother()};
    for (Operation (*make)() : {saveOver, saveStraight, upgradeInPlace}) all.push_back(ofAnother(make()));
    return all;
}

}  // namespace faults
