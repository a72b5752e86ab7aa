#include "tools/Reading.h"

#include <algorithm>
#include <cstdio>
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
#include "store/FilePlaces.h"
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
    requireWholeInput();
    if (bytes.empty()) throw Unreadable(standardInput + L": is empty");
    try {
        return ConfigInfo::fromText(bytes, standardInput);
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage() + encodingReason(fault.getMessage(), bytes),
                         faultLine(fault.getMessage(), bytes));
    }
}

std::unique_ptr<ConfigInfo> parsed(const std::string& file, Lines lines) {
    return file == "-" ? parsedInput() : openDocument(file, lines);
}

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

/// Why a configuration that may be read is not opened.
std::wstring reasonOfRights(const std::filesystem::path& path, std::filesystem::perms rights) {
    using Rights = std::filesystem::perms;
    const Rights writing = Rights::owner_write | Rights::group_write | Rights::others_write;
    if ((rights & writing) == Rights::none) return L"; nobody may write it, and such a file is not opened";
    const bool isWritable = bool(std::fstream(path, std::ios::in | std::ios::out));  // which changes nothing
    return isWritable ? L"" : L"; it may not be written by you, and such a file is not opened";
}

/// Why a file cannot be read, as far as that can be seen from outside.
std::wstring reasonNotToRead(const std::filesystem::path& path, const std::filesystem::file_status& status,
                             const std::error_code& fault) {
    if (std::filesystem::is_directory(status)) return L"; it is a folder";
    if (fault == std::errc::permission_denied) return L"; its folder may not be entered by you";
    if (status.type() == std::filesystem::file_type::not_found) return L"; there is no such file";
    const bool isForbidden = std::filesystem::is_regular_file(status) && !std::ifstream(path);
    return isForbidden ? L"; it may not be read by you" : L"";
}

std::wstring reasonNotToOpen(const std::filesystem::path& path) {
    std::error_code fault;
    const std::filesystem::file_status status = std::filesystem::status(path, fault);
    std::wstring reason = reasonNotToRead(path, status, fault);
    if (!reason.empty() || !std::filesystem::exists(status)) return reason;
    if (!std::filesystem::is_regular_file(status)) return L"; it is a pipe or a device";
    return reasonOfRights(path, status.permissions());
}

}  // namespace

std::wstring unreadableLines(const std::string& file) {
    const std::wstring name = XMLConfig::wideFromUtf8(file);
    const std::filesystem::path path = XMLConfig::pathForStreams(name);
    std::error_code fault;
    const std::filesystem::file_status status = std::filesystem::status(path, fault);
    return name + L": cannot be read" + reasonNotToRead(path, status, fault);
}

std::wstring withReason(const std::wstring& message, const std::string& file) {
    const std::filesystem::path path = XMLConfig::pathForStreams(XMLConfig::wideFromUtf8(file));
    std::error_code ignored;
    const std::wstring notOpened = L": Can not open file: " + XMLConfig::wideFromUtf8(file);
    const std::size_t at = message.rfind(notOpened);
    if (at != std::wstring::npos)  // what follows the name is a reason already
        return at + notOpened.size() == message.size() ? message + reasonNotToOpen(path) : message;
    if (!std::filesystem::is_regular_file(path, ignored)) return message;
    if (std::filesystem::file_size(path, ignored) == 0) return message + L"; the file is empty";
    std::ifstream in(path, std::ios::binary);
    return in ? message + encodingReason(message, allOf(in)) : message;
}

void requireWholeInput() {
    // The stream takes a fault for the end.
    if (std::cin.bad() || std::ferror(stdin) != 0) throw Unreadable(standardInput + L": cannot be read");
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

std::unique_ptr<ConfigInfo> openDocument(const std::string& file, const Lines lines) {
    try {
        const std::wstring path = XMLConfig::wideFromUtf8(file);
        return lines == Lines::Asked ? XMLConfig::loadWithPlaces(path) : std::make_unique<ConfigInfo>(path);
    } catch (const CorvaneException& fault) {
        throw Unreadable(withReason(fault.getMessage(), file), faultLineIn(file, fault.getMessage()));
    }
}

ReadDocument readForCheck(const std::string& file) {
    try {
        ReadDocument result{parsed(file, Lines::Asked), std::nullopt};
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

ReadDocument readWithVersion(const std::string& file, const Lines lines) {
    try {
        ReadDocument result{parsed(file, lines), std::nullopt};
        result.storedVersion = bringUpToDate(*result.document, file);
        return result;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

std::unique_ptr<ConfigInfo> readDocument(const std::string& file, const Lines lines) {
    return readWithVersion(file, lines).document;
}

std::unique_ptr<ConfigInfo> readDocumentAsStored(const std::string& file) {
    try {
        std::unique_ptr<ConfigInfo> document = parsed(file, Lines::NotAsked);
        knownVersion(*document, nameOf(file));
        return document;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

}  // namespace tool
