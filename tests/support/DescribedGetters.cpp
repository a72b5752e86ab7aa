#include "tests/support/DescribedGetters.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <stdexcept>

#include "manager/Catalogue.h"
#include "platform/Text.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TextLines.h"

namespace {

using XMLConfig::Setting;
using XMLConfig::detail::toUtf8;

std::vector<std::string> linesOfFile(const std::string& path) { return linesOf(TemporaryFolder::readFile(path)); }

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
        if (!lineWith("/// Its settings: " + tableFile + " and, as a page, docs/settings.md#", linesOfFile(header)).empty())
            return std::filesystem::path(header).stem().string();
    return "";
}

std::string wordAt(const std::string& text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && (std::isalnum(static_cast<unsigned char>(text[end])) != 0 || text[end] == '_')) ++end;
    return text.substr(at, end - at);
}

const Setting& settingAt(const std::string& section, const std::string& key) {
    for (const Setting& setting : XMLConfig::catalogue())
        if (toUtf8(setting.section) == section && toUtf8(setting.key) == key) return setting;
    throw std::runtime_error("no setting " + key);
}

/// Settings by the names of their descriptors, as the table's header lists them.
std::map<std::string, Setting> settingsByName(const TableSource& source) {
    const std::string start = "{*this, L\"";
    std::map<std::string, Setting> settings;
    for (const std::string& line : linesOfFile(source.table + ".h")) {
        const std::size_t brace = line.find(start);
        if (brace == std::string::npos) continue;
        const std::size_t name = line.rfind(' ', brace) + 1;
        const std::size_t key = brace + start.size();
        settings.emplace(line.substr(name, brace - name),
                         settingAt(source.section, line.substr(key, line.find('"', key) - key)));
    }
    return settings;
}

/// The descriptors' names that stand in each function of the accessor.
std::map<std::string, std::set<std::string>> itemsNamedBy(const TableSource& source) {
    const std::string scope = source.accessor + "::";
    const std::string item = "items.";
    std::map<std::string, std::set<std::string>> named;
    for (const std::string& file : filesOfSections(".cpp")) {
        const auto lines = linesOfFile(file);
        if (lineWith("#include \"" + source.table + ".h\"", lines).empty()) continue;
        std::string function;
        for (const std::string& line : lines) {
            const std::size_t name = line.rfind(scope, line.find('('));  // the result may be of the class too
            if (!line.empty() && line[0] != ' ')
                function = name == std::string::npos ? "" : wordAt(line, name + scope.size());
            for (std::size_t at = line.find(item); at != std::string::npos && !function.empty();
                 at = line.find(item, at + 1))
                named[function].insert(wordAt(line, at + item.size()));
        }
    }
    return named;
}

bool isGetter(const std::string& function) { return function.rfind("get", 0) == 0 || function.rfind("is", 0) == 0; }

}  // namespace

std::vector<TableSource> tableSources() {
    std::vector<TableSource> sources;
    for (const std::string& file : filesOfSections("Items.h")) {
        const std::string made = lineWith(" : SettingTable(L\"", linesOfFile(file));
        if (made.empty()) continue;
        const std::size_t name = made.find('"') + 1;
        sources.push_back({file.substr(0, file.size() - 2), accessorOf(file), made.substr(name, made.rfind('"') - name)});
    }
    return sources;
}

std::map<std::string, std::vector<Setting>> describedGetters() {
    std::map<std::string, std::vector<Setting>> getters;
    for (const TableSource& source : tableSources()) {
        const auto settings = settingsByName(source);
        for (const auto& [function, items] : itemsNamedBy(source)) {
            if (!isGetter(function)) continue;
            for (const std::string& item : items) getters[source.accessor + "::" + function].push_back(settings.at(item));
        }
    }
    return getters;
}
