#include "tools/Reading.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

#include "manager/UpgradeFile.h"
#include "platform/FileNames.h"
#include "platform/Utf8.h"
#include "store/Address.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"
#include "tools/FaultLine.h"
#include "tools/NumberTexts.h"
#include "tools/Printable.h"
#include "tools/UpgradeSummary.h"

namespace tool {
namespace {

const std::wstring standardInput = L"standard input";

std::wstring nameOf(const std::string& file) { return file == "-" ? standardInput : XMLConfig::wideFromUtf8(file); }

std::string allOf(std::istream& in) { return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}; }

std::unique_ptr<ConfigInfo> parsedInput() {
    const std::string bytes = allOf(std::cin);
    try {
        return ConfigInfo::fromText(bytes, standardInput);
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage(), faultLine(fault.getMessage(), bytes));
    }
}

std::unique_ptr<ConfigInfo> parsed(const std::string& file) { return file == "-" ? parsedInput() : openDocument(file); }

/// The version of a document; throws for one that this program does not know.
double knownVersion(const ConfigInfo& document, const std::wstring& name) {
    const double latest = ConfigInfoFactory::getLatestFileVersionNumber();
    requireConfiguration(document, name);
    const double version = document.getVersion();
    if (version > latest) refuseNewer(document, name);
    return version;
}

std::size_t devicesIn(const ConfigInfo& document) {
    return document.getSectionIDs(L"Projector").size() + document.getSectionIDs(L"Camera").size();
}

/// The names of the devices that the upgrade drops, such as ": Camera[3] \"Old\""; where there are many, the command that
/// names them. The file is read once more for this, because a receipt would make each reading of an old file a third longer,
/// and hardly any upgrade drops a device.
std::wstring lostNames(const std::string& file, std::size_t lost) {
    constexpr std::size_t most = 3;
    if (file == "-") return L"";
    const std::wstring name = nameOf(file);
    if (lost > most) return L" (xmlconfig upgrade --dry-run " + fileWord(name) + L" names them)";
    std::wstring names;
    for (const XMLConfig::LostDevice& device : XMLConfig::upgradeFile({name, L"", false}).lost)
        names += (names.empty() ? L": " : L", ") + deviceName(device.section, device.id, device.name);
    return names;
}

std::wstring upgradeText(const std::string& file, double version, std::size_t lost, const wchar_t* done) {
    const std::wstring text = nameOf(file) + L": is of file version " + XMLConfig::versionText(version) + L"; " + done +
                              L" as it would be after the upgrade";
    return lost == 0 ? text : text + L", which drops " + counted(lost, L"device") + lostNames(file, lost);
}

/// Upgrades the document, and gives how many devices that drops; nothing where it needs no upgrade.
std::optional<std::size_t> upgradeInMemory(ConfigInfo& document) {
    const std::size_t devices = devicesIn(document);
    if (XMLConfig::upgradeDocument(document) != XMLConfig::Upgraded) return std::nullopt;
    return devices - std::min(devices, devicesIn(document));
}

/// Upgrades the document, says so, and gives the version that it had before; nothing for a document of the latest version.
std::optional<double> bringUpToDate(ConfigInfo& document, const std::string& file) {
    const double version = knownVersion(document, nameOf(file));
    const std::optional<std::size_t> lost = upgradeInMemory(document);
    if (!lost) return std::nullopt;
    complain(upgradeText(file, version, *lost, L"read"));
    return version;
}

}  // namespace

std::wstring withReason(const std::wstring& message, const std::string& file) {
    if (message.find(L": Can not open file: ") == std::wstring::npos) return message;
    std::error_code ignored;
    const auto status = std::filesystem::status(XMLConfig::pathForStreams(XMLConfig::wideFromUtf8(file)), ignored);
    if (std::filesystem::is_directory(status)) return message + L"; it is a folder";
    if (!std::filesystem::exists(status)) return message;
    if (!std::filesystem::is_regular_file(status)) return message + L"; it is a pipe or a device";
    using Rights = std::filesystem::perms;
    const Rights writing = Rights::owner_write | Rights::group_write | Rights::others_write;
    const bool isReadOnly = (status.permissions() & writing) == Rights::none;
    return isReadOnly ? message + L"; nobody may write it, and such a file is not opened" : message;
}

std::wstring faultLineIn(const std::string& file, const std::wstring& message) {
    const std::filesystem::path path = XMLConfig::pathForStreams(XMLConfig::wideFromUtf8(file));
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return {};
    std::ifstream in(path, std::ios::binary);
    return in ? faultLine(message, allOf(in)) : std::wstring();
}

void requireConfiguration(const ConfigInfo& document, const std::wstring& name) {
    const std::wstring root = XMLConfig::rootElement(document).name();
    if (root != L"ConfigInfo") throw Unreadable(name + L": is no configuration, its root element is \"" + root + L"\"");
    const std::wstring version = XMLConfig::rootElement(document).child(XMLConfig::detail::versionElement).text();
    if (version.empty()) throw Unreadable(name + L": is no configuration, it has no version");
    if (!(document.getVersion() > 0.0))
        throw Unreadable(name + L": is no configuration, its version is \"" + version + L"\"");
}

void refuseNewer(const ConfigInfo& document, const std::wstring& name) {
    throw Unreadable(name + L": is of file version " + XMLConfig::versionText(document.getVersion()) +
                     L"; this program knows " + XMLConfig::versionText(ConfigInfoFactory::getLatestFileVersionNumber()));
}

std::unique_ptr<ConfigInfo> openDocument(const std::string& file) {
    try {
        const std::wstring path = XMLConfig::wideFromUtf8(file);
        return std::unique_ptr<ConfigInfo>(ConfigInfoFactory::getInstance()->createFromFile(path));
    } catch (const CorvaneException& fault) {
        throw Unreadable(withReason(fault.getMessage(), file), faultLineIn(file, fault.getMessage()));
    }
}

ReadDocument readForCheck(const std::string& file) {
    try {
        ReadDocument result{parsed(file), std::nullopt};
        requireConfiguration(*result.document, nameOf(file));
        const double version = result.document->getVersion();
        if (version >= ConfigInfoFactory::getLatestFileVersionNumber()) return result;
        // A finding of the check tells that the file is old.
        const std::size_t lost = upgradeInMemory(*result.document).value_or(0);
        if (lost > 0) complain(upgradeText(file, version, lost, L"checked"));
        result.storedVersion = version;
        return result;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

ReadDocument readWithVersion(const std::string& file) {
    try {
        ReadDocument result{parsed(file), std::nullopt};
        result.storedVersion = bringUpToDate(*result.document, file);
        return result;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

std::unique_ptr<ConfigInfo> readDocument(const std::string& file) { return readWithVersion(file).document; }

std::unique_ptr<ConfigInfo> readDocumentAsStored(const std::string& file) {
    try {
        std::unique_ptr<ConfigInfo> document = parsed(file);
        knownVersion(*document, nameOf(file));
        return document;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

}  // namespace tool
