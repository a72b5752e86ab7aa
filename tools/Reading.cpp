#include "tools/Reading.h"

#include <iostream>
#include <iterator>

#include "manager/Upgrade.h"
#include "platform/Utf8.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "tools/Numbers.h"

namespace tool {
namespace {

const std::wstring standardInput = L"standard input";

std::wstring nameOf(const std::string& file) { return file == "-" ? standardInput : XMLConfig::wideFromUtf8(file); }

std::unique_ptr<ConfigInfo> parsed(const std::string& file) {
    if (file != "-") {
        const std::wstring path = XMLConfig::wideFromUtf8(file);
        return std::unique_ptr<ConfigInfo>(ConfigInfoFactory::getInstance()->createFromFile(path));
    }
    const std::string bytes{std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
    return ConfigInfo::fromText(bytes, standardInput);
}

/// Whole versions with one decimal, as people write them.
std::wstring versionText(double version) {
    const std::wstring digits = numberText(version, 3);
    return digits.find(L'.') == std::wstring::npos ? digits + L".0" : digits;
}

/// The version of a document that this program knows.
double knownVersion(const ConfigInfo& document, const std::wstring& name) {
    const double latest = ConfigInfoFactory::getLatestFileVersionNumber();
    if (!document.doesSectionExist(L"Version", L"")) throw Unreadable(name + L": is no configuration, it has no version");
    const double version = document.getVersion();
    if (version > latest)
        throw Unreadable(name + L": is of file version " + versionText(version) + L"; this program knows " +
                         versionText(latest));
    return version;
}

void bringUpToDate(ConfigInfo& document, const std::wstring& name) {
    const double version = knownVersion(document, name);
    if (XMLConfig::upgradeDocument(document) == XMLConfig::Upgraded)
        complain(name + L": is of file version " + versionText(version) + L"; read as it would be after the upgrade");
}

}  // namespace

std::unique_ptr<ConfigInfo> readDocument(const std::string& file) {
    try {
        std::unique_ptr<ConfigInfo> document = parsed(file);
        bringUpToDate(*document, nameOf(file));
        return document;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

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
