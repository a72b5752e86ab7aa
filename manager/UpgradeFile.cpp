#include "manager/UpgradeFile.h"

#include "manager/SharedReadings.h"
#include "manager/upgrade/Losses.h"
#include "manager/upgrade/VersionUpgrade.h"
#include "platform/Cancellation.h"
#include "platform/FileNames.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/DocumentSaving.h"
#include "store/ElementView.h"
#include "store/FileChange.h"
#include "store/TextForms.h"

namespace XMLConfig {

namespace {

using detail::FileError;

[[noreturn]] void refuse(const std::wstring& path, const std::wstring& reason) {
    throw CorvaneException(L"Error upgradeFile: " + path + L": " + reason);
}

// The first of the numbered backup names that is free; a link that leads nowhere takes its name, too.
std::wstring freeBackupName(const std::wstring& path, double version) {
    const std::wstring first = path + L".v" + detail::versionText(version) + L".bak";
    std::wstring name = first;
    for (int number = 2; isNameTaken(name); ++number) name = first + L"." + detail::formatInteger(number);
    return name;
}

void copy(const std::wstring& from, const std::wstring& to) {
    try {
        detail::copyToNewFile(from, to);
    } catch (const FileError& error) {
        refuse(from, error.message());
    }
}

// Copies the file and gives the name of the copy. Where somebody else takes a free name first, the next one serves.
std::wstring keepBackup(const std::wstring& path, double version) {
    for (;;) {
        std::wstring backup = freeBackupName(path, version);
        try {
            detail::copyToNewFile(path, backup);
            return backup;
        } catch (const FileError& error) {
            if (!isNameTaken(backup)) refuse(path, error.message());
        }
    }
}

bool isSameContent(const std::wstring& left, const std::wstring& right) {
    try {
        return detail::readWholeFile(left) == detail::readWholeFile(right);
    } catch (const FileError&) {
        return false;
    }
}

// Refuses a file that was changed after it was read: the backup would keep something else than was converted.
void refuseChange(const ConfigInfo& document, const std::wstring& path, const std::wstring& backup) {
    if (!hasFileChanged(document)) return;
    detail::removeFile(backup);
    refuse(path, L"has been changed by another program meanwhile");
}

// The backup is complete before the file is touched, and is removed again only where the file has surely stayed as it was.
void replaceKeepingBackup(ConfigInfo& document, const std::wstring& path, const std::wstring& backup) {
    try {
        refuseChange(document, path, backup);
        document.save(path);
    } catch (...) {
        if (isSameContent(path, backup)) detail::removeFile(backup);
        throw;
    }
}

void write(ConfigInfo& document, double version, const UpgradeFileRequest& request, UpgradeFileReport& report) {
    if (report.status == NoUpgradeRequired) {
        if (!request.target.empty()) copy(request.path, report.target);
    } else if (request.target.empty()) {
        report.backup = keepBackup(request.path, version);
        replaceKeepingBackup(document, report.target, report.backup);
    } else {
        if (!detail::saveAsNewFile(document, report.target, request.path)) refuse(report.target, L"exists already");
    }
}

}  // namespace

UpgradeFileReport upgradeFile(const UpgradeFileRequest& request) {
    const detail::HeldCancellation held;
    if (!request.target.empty() && detail::fileExists(request.target)) refuse(request.target, L"exists already");
    ConfigInfo document(request.path);
    const std::wstring root = rootElement(document).name();
    if (root != L"ConfigInfo") refuse(request.path, L"is no configuration, its root element is \"" + root + L"\"");
    const double version = document.getVersion();
    UpgradeFileReport report;
    report.statedVersion = rootElement(document).child(detail::versionElement).text();
    report.target = request.target.empty() ? request.path : request.target;
    const std::vector<LostDevice> devices = detail::devicesOf(document);
    report.status = detail::doFileVersionConversion(&document, &report.receipt);
    report.lost = detail::lostOf(devices, report.receipt);
    report.renamed = detail::renamedOf(devices, report.receipt);
    report.dangling = detail::danglingReferences(document, report.renamed);
    report.readOtherwise = detail::readOtherwise(document, report.receipt);
    if (report.status == UpgradeFailed) {
        refuse(request.path, L"is of file version " + versionText(version) + L"; this program knows " +
                                 versionText(ConfigInfoFactory::getLatestFileVersionNumber()));
    }
    if (report.status == Upgraded && request.target.empty()) report.backup = freeBackupName(request.path, version);
    if (request.writesFiles) write(document, version, request, report);
    return report;
}

}  // namespace XMLConfig
