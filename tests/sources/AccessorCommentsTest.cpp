// The headers of the sections say of each getter what its setting's descriptor says: meaning and unit.

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <set>
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
using XMLConfig::detail::toUtf8;

struct Section {
    std::string table;     ///< its header without ".h": "sections/GeometryItems"
    std::string accessor;  ///< the class in sections/<accessor>.h, whose comment names the table; "" where none does
    std::string name;      ///< in a document
    std::vector<std::string> sources;
};

std::vector<std::string> linesOf(const std::string& path) {
    std::istringstream stream(XMLConfig::detail::readWholeFile(XMLConfig::detail::fromUtf8(path)));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::vector<std::string> filesOfSections(const std::string& ending) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator("sections")) {
        const std::string file = entry.path().generic_string();
        if (file.size() > ending.size() && file.substr(file.size() - ending.size()) == ending) files.push_back(file);
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The first line that holds the text; "" without one.
std::string lineWith(const std::string& text, const std::vector<std::string>& lines) {
    const auto holds = [&](const std::string& line) { return line.find(text) != std::string::npos; };
    const auto found = std::find_if(lines.begin(), lines.end(), holds);
    return found == lines.end() ? "" : *found;
}

std::string accessorOf(const std::string& tableFile) {
    for (const std::string& header : filesOfSections(".h"))
        if (!lineWith("/// Its settings: " + tableFile + " and, as a page, docs/settings.md#", linesOf(header)).empty())
            return std::filesystem::path(header).stem().string();
    return "";
}

/// Every section that has a table of settings.
std::vector<Section> everySection() {
    std::vector<Section> sections;
    for (const std::string& file : filesOfSections("Items.h")) {
        const std::string made = lineWith(" : SettingTable(L\"", linesOf(file));
        if (made.empty()) continue;
        const std::size_t name = made.find('"') + 1;
        Section section{file.substr(0, file.size() - 2), accessorOf(file), made.substr(name, made.rfind('"') - name), {}};
        for (const std::string& source : filesOfSections(".cpp"))
            if (!lineWith("#include \"" + file + "\"", linesOf(source)).empty()) section.sources.push_back(source);
        sections.push_back(section);
    }
    return sections;
}

std::string wordAt(const std::string& text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && (std::isalnum(static_cast<unsigned char>(text[end])) != 0 || text[end] == '_')) ++end;
    return text.substr(at, end - at);
}

/// Keys by the names of their descriptors, as the table's header lists them.
std::map<std::string, std::string> keysOf(const std::string& table) {
    std::map<std::string, std::string> keys;
    for (const std::string& line : linesOf(table + ".h")) {
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
    const std::string scope = section.accessor + "::";
    std::map<std::string, std::vector<std::string>> read;
    for (const std::string& source : section.sources) {
        std::string function;
        for (const std::string& line : linesOf(source)) {
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

const Setting& settingAt(const std::string& section, const std::string& key) {
    for (const Setting& setting : XMLConfig::catalogue())
        if (toUtf8(setting.section) == section && toUtf8(setting.key) == key) return setting;
    throw std::runtime_error("no setting " + key);
}

std::string lower(const std::wstring& text) { return toUtf8(XMLConfig::detail::lowerAscii(text)); }

}  // namespace

TEST(AccessorComments, AreLookedForInEverySectionOfTheCatalogue) {
    std::set<std::string> inCatalogue;
    for (const Setting& setting : XMLConfig::catalogue()) inCatalogue.insert(toUtf8(setting.section));
    std::set<std::string> withTables;
    for (const Section& section : everySection()) withTables.insert(section.name);
    EXPECT_EQ(withTables, inCatalogue);
}

TEST(AccessorComments, NameTheTableOfTheSection) {
    for (const Section& section : everySection())
        EXPECT_NE(section.accessor, "") << "no header of sections/ says \"Its settings: " << section.table << ".h ...\"";
}

TEST(AccessorComments, SayMeaningAndUnitOfTheDescriptor) {
    int checked = 0;
    for (const Section& section : everySection()) {
        const auto header = linesOf("sections/" + section.accessor + ".h");
        const auto keys = keysOf(section.table);
        for (const auto& [getter, item] : gettersOf(section)) {
            const std::string comment = commentOf(header, getter);
            if (comment == "(none)") continue;
            SCOPED_TRACE(section.accessor + "::" + getter + " says: " + comment);
            const Setting& setting = settingAt(section.name, keys.at(item));
            EXPECT_NE(comment.find(lower(setting.meaning)), std::string::npos) << lower(setting.meaning);
            EXPECT_NE(comment.find(lower(nameOf(setting.unit))), std::string::npos) << lower(nameOf(setting.unit));
            ++checked;
        }
    }
    EXPECT_GT(checked, 190);
}
