#include "tools/Reading.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

#include "manager/Upgrade.h"
#include "platform/FileNames.h"
#include "platform/Utf8.h"
#include "store/Address.h"
#include "store/ConfigInfoFactory.h"
#include "store/CorvaneException.h"
#include "store/ElementView.h"
#include "tools/FaultLine.h"
#include "tools/NumberTexts.h"

namespace tool {
namespace {

const std::wstring standardInput = L"standard input";

std::wstring nameOf(const std::string& file) { return file == "-" ? standardInput : XMLConfig::wideFromUtf8(file); }

std::string allOf(std::istream& in) { return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()}; }

/// The message, followed by the line at fault where it names one.
std::wstring withLine(const std::wstring& message, const std::string& text) {
    const std::wstring line = faultLine(message, text);
    return line.empty() ? message : message + L"\n" + line;
}

std::unique_ptr<ConfigInfo> parsedInput() {
    const std::string bytes = allOf(std::cin);
    try {
        return ConfigInfo::fromText(bytes, standardInput);
    } catch (const CorvaneException& fault) {
        throw Unreadable(withLine(fault.getMessage(), bytes));
    }
}

std::unique_ptr<ConfigInfo> parsed(const std::string& file) { return file == "-" ? parsedInput() : openDocument(file); }

/// The version of a document that this program knows.
double knownVersion(const ConfigInfo& document, const std::wstring& name) {
    const double latest = ConfigInfoFactory::getLatestFileVersionNumber();
    requireConfiguration(document, name);
    const double version = document.getVersion();
    if (version > latest)
        throw Unreadable(name + L": is of file version " + shownVersion(version) + L"; this program knows " +
                         shownVersion(latest));
    return version;
}

void bringUpToDate(ConfigInfo& document, const std::wstring& name) {
    const double version = knownVersion(document, name);
    if (XMLConfig::upgradeDocument(document) == XMLConfig::Upgraded)
        complain(name + L": is of file version " + shownVersion(version) + L"; read as it would be after the upgrade");
}

}  // namespace

std::wstring withFaultLine(const std::wstring& message, const std::string& file) {
    const std::filesystem::path path = XMLConfig::pathForStreams(XMLConfig::wideFromUtf8(file));
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return message;
    std::ifstream in(path, std::ios::binary);
    return in ? withLine(message, allOf(in)) : message;
}

void requireConfiguration(const ConfigInfo& document, const std::wstring& name) {
    const std::wstring root = XMLConfig::rootElement(document).name();
    if (root != L"ConfigInfo") throw Unreadable(name + L": is no configuration, its root element is \"" + root + L"\"");
    const std::wstring version = XMLConfig::rootElement(document).child(L"Version").text();
    if (version.empty()) throw Unreadable(name + L": is no configuration, it has no version");
    if (!(document.getVersion() > 0.0))
        throw Unreadable(name + L": is no configuration, its version is \"" + version + L"\"");
}

std::unique_ptr<ConfigInfo> openDocument(const std::string& file) {
    try {
        const std::wstring path = XMLConfig::wideFromUtf8(file);
        return std::unique_ptr<ConfigInfo>(ConfigInfoFactory::getInstance()->createFromFile(path));
    } catch (const CorvaneException& fault) {
        throw Unreadable(withFaultLine(fault.getMessage(), file));
    }
}

ReadForCheck readForCheck(const std::string& file) {
    try {
        ReadForCheck result{parsed(file), std::nullopt};
        requireConfiguration(*result.document, nameOf(file));
        const double version = result.document->getVersion();
        if (version >= ConfigInfoFactory::getLatestFileVersionNumber()) return result;
        XMLConfig::upgradeDocument(*result.document);
        result.storedVersion = version;
        return result;
    } catch (const CorvaneException& fault) {
        throw Unreadable(fault.getMessage());
    }
}

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
