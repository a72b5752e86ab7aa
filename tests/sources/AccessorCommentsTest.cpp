// The headers of the sections say of each getter what its setting's descriptor says: meaning and unit.

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "manager/Catalogue.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/Words.h"

namespace {

using XMLConfig::Setting;

struct Section {
    const char* accessor;  ///< of sections/<accessor>*.cpp and .h
    const char* table;     ///< of sections/<table>Items.h
    const wchar_t* name;
    std::vector<const char*> sources;
};
const Section sections[] = {
    {"GeometryConfig", "Geometry", L"Geometry", {"GeometryConfig"}},
    {"ColorConfig", "Color", L"Color", {"ColorConfig"}},
    {"ScreenConfig", "Screen", L"Screen", {"ScreenConfig"}},
    {"SystemConfig", "System", L"System", {"SystemConfig", "SystemConfigDevices"}},
    {"TargetLocatorConfig", "TargetLocator", L"TargetLocator", {"TargetLocatorConfig"}},
    {"ProjectorApprovedSlotsConfig", "ApprovedSlots", L"ProjectorApprovedSlots", {"ProjectorApprovedSlotsConfig"}},
    {"SiteAnalyticsConfig", "SiteAnalytics", L"SiteAnalytics", {"SiteAnalyticsConfig"}},
    {"ProjectorConfig", "Projector", L"Projector", {"ProjectorConfig"}},
    {"CameraConfig", "Camera", L"Camera", {"CameraConfig"}},
    {"MediaServerConfig", "MediaServer", L"MediaServer", {}},                       // its callers name the keys
    {"ReprojectionAccuracy", "ReprojectionAccuracy", L"ReprojectionAccuracy", {}},  // two getters an item, of one name
};

std::vector<std::string> linesOf(const std::string& path) {
    std::istringstream stream(XMLConfig::detail::readWholeFile(XMLConfig::detail::fromUtf8(path)));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::string wordAt(const std::string& text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && (std::isalnum(static_cast<unsigned char>(text[end])) != 0 || text[end] == '_')) ++end;
    return text.substr(at, end - at);
}

/// Keys by the names of their descriptors, as the table's header lists them.
std::map<std::string, std::string> keysOf(const std::string& table) {
    std::map<std::string, std::string> keys;
    for (const std::string& line : linesOf("sections/" + table + "Items.h")) {
        const std::size_t brace = line.find("{*this, L\"");
        if (brace == std::string::npos) continue;
        const std::size_t key = brace + std::string("{*this, L\"").size();
        keys[line.substr(line.rfind(' ', brace) + 1, brace - line.rfind(' ', brace) - 1)] =
            line.substr(key, line.find('"', key) - key);
    }
    return keys;
}

/// Descriptors by the getters that read them and no other.
std::map<std::string, std::string> gettersOf(const Section& section) {
    const std::string scope = std::string(section.accessor) + "::";
    std::map<std::string, std::vector<std::string>> read;
    for (const char* source : section.sources) {
        std::string function;
        for (const std::string& line : linesOf(std::string("sections/") + source + ".cpp")) {
            const std::size_t name = line.find(scope);
            if (name != std::string::npos && line[0] != ' ') function = wordAt(line, name + scope.size());
            for (const std::string call : {"read(items.", "readInherited(items."})
                for (std::size_t at = line.find(call); at != std::string::npos; at = line.find(call, at + 1))
                    read[function].push_back(wordAt(line, at + call.size()));
        }
    }
    std::map<std::string, std::string> getters;
    for (const auto& [function, items] : read)
        if (items.size() == 1 && (function.rfind("get", 0) == 0 || function.rfind("is", 0) == 0))
            getters[function] = items[0];
    return getters;
}

/// What stands beside or above a member's declaration, as one line in small letters; "(none)" without a public declaration.
std::string commentOf(const std::vector<std::string>& header, const std::string& member) {
    for (std::size_t i = 0; i < header.size() && header[i] != "private:"; ++i) {
        if (header[i].find(" " + member + "(") == std::string::npos || header[i].find("///") < header[i].find(member))
            continue;
        std::string text;
        for (std::size_t above = i; above > 0 && header[above - 1].rfind("    /// ", 0) == 0; --above)
            text = header[above - 1].substr(8) + " " + text;
        const std::size_t beside = header[i].find("///< ");
        if (beside != std::string::npos) text += header[i].substr(beside + 5);
        std::transform(text.begin(), text.end(), text.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;  // whatever the locale
        });
        return text;
    }
    return "(none)";
}

const Setting& settingAt(const std::wstring& section, const std::string& key) {
    for (const Setting& setting : XMLConfig::catalogue())
        if (setting.section == section && XMLConfig::detail::toUtf8(setting.key) == key) return setting;
    throw std::runtime_error("no setting " + key);
}

std::string lower(const std::wstring& text) { return XMLConfig::detail::toUtf8(XMLConfig::detail::lowerAscii(text)); }

}  // namespace

TEST(AccessorComments, SayMeaningAndUnitOfTheDescriptor) {
    int checked = 0;
    for (const Section& section : sections) {
        const auto header = linesOf(std::string("sections/") + section.accessor + ".h");
        const auto keys = keysOf(section.table);
        for (const auto& [getter, item] : gettersOf(section)) {
            const std::string comment = commentOf(header, getter);
            if (comment == "(none)") continue;
            SCOPED_TRACE(std::string(section.accessor) + "::" + getter + " says: " + comment);
            const Setting& setting = settingAt(section.name, keys.at(item));
            EXPECT_NE(comment.find(lower(setting.meaning)), std::string::npos) << lower(setting.meaning);
            EXPECT_NE(comment.find(lower(nameOf(setting.unit))), std::string::npos) << lower(nameOf(setting.unit));
            ++checked;
        }
    }
    EXPECT_GT(checked, 190);
}

TEST(AccessorComments, NameTheTableOfTheSection) {
    for (const Section& section : sections) {
        const std::string link = std::string("sections/") + section.table + "Items.h and, as a page, docs/settings.md#";
        const auto header = linesOf(std::string("sections/") + section.accessor + ".h");
        EXPECT_TRUE(std::any_of(header.begin(), header.end(), [&](const std::string& line) {
            return line.find(link) != std::string::npos;
        })) << section.accessor;
    }
}
