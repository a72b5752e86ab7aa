#include "tools/Configuration.h"

#include <filesystem>
#include <system_error>

#include "manager/Upgrade.h"
#include "platform/FileNames.h"
#include "platform/SignalHold.h"
#include "platform/Utf8.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"
#include "tools/Output.h"
#include "tools/Printable.h"
#include "tools/Reading.h"
#include "tools/Writing.h"

namespace tool {
namespace {

std::wstring storedVersion(const ConfigInfo& document) {
    const XMLConfig::ElementView version = XMLConfig::rootElement(document).child(XMLConfig::detail::versionElement);
    return version.firstChild() ? L"" : version.text();
}

}  // namespace

bool isOfLatestVersion(const ConfigInfo& document) {
    return !storedVersion(document).empty() && document.getVersion() == ConfigInfoFactory::getLatestFileVersionNumber();
}

void requireLatestVersion(const ConfigInfo& document, const std::string& file) {
    const std::wstring name = XMLConfig::wideFromUtf8(file);
    requireConfiguration(document, name);
    if (isOfLatestVersion(document)) return;
    if (document.getVersion() > ConfigInfoFactory::getLatestFileVersionNumber()) refuseNewer(document, name);
    throw Refusal(name + L": is of file version " + XMLConfig::versionText(document.getVersion()) +
                  L" and must be upgraded first: xmlconfig upgrade " + fileWord(name));
}

void saveDocument(ConfigInfo& document, const std::string& file) {
    document.insertBuildDateAndNumber();
    const XMLConfig::SignalHold hold;
    refuseForeignChange(document, file);
    try {
        if (!document.save(XMLConfig::wideFromUtf8(file))) throw Unreadable(L"an empty file name");
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
    noteWritten(file);
}

bool exists(const std::string& file) { return XMLConfig::isNameTaken(XMLConfig::wideFromUtf8(file)); }

std::vector<std::string> withPatternsExpanded(const std::vector<std::string>& names) {
    std::vector<std::string> files;
    for (const std::string& name : names) {
        const std::vector<std::wstring> found = XMLConfig::filesMatching(XMLConfig::wideFromUtf8(name));
        for (const std::wstring& file : found) files.push_back(XMLConfig::utf8FromWide(file));
        if (found.empty()) files.push_back(name);
    }
    return files;
}

bool isDevice(const std::string& file) {
    std::error_code ignored;
    const std::filesystem::path path = XMLConfig::pathForStreams(XMLConfig::wideFromUtf8(file));
    return std::filesystem::is_other(std::filesystem::status(path, ignored));
}

}  // namespace tool
