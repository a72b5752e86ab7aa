// The headers of the sections say of each getter what its setting's descriptor says: meaning, unit and default.

#include <algorithm>
#include <cstdlib>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manager/Catalogue.h"
#include "platform/Text.h"
#include "platform/Words.h"
#include "tests/support/Declarations.h"
#include "tests/support/DescribedGetters.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::HasSubstr;
using XMLConfig::Setting;
using XMLConfig::SettingType;
using XMLConfig::detail::toUtf8;

std::string lower(const std::wstring& text) { return toUtf8(XMLConfig::detail::lowerAscii(text)); }

/// In small letters, without double blanks.
std::string plain(const std::string& comment) {
    return std::regex_replace(lower(XMLConfig::detail::fromUtf8(comment)), std::regex(" +"), " ");
}

struct Getter {
    std::string name;  ///< "GeometryConfig::getBoxSize"
    Declaration declared;
    std::vector<Setting> settings;
};

/// The public getters that read settings, as the headers declare them: with their overloads, and with those of the interface
/// that ScreenConfig implements.
std::vector<Getter> getters() {
    std::map<std::string, std::vector<Declaration>> read;
    std::vector<Getter> found;
    for (const auto& [name, settings] : describedGetters()) {
        const std::string accessor = name.substr(0, name.find(':'));
        std::vector<std::string> headers = {"sections/" + accessor + ".h"};
        if (accessor == "ScreenConfig") headers.push_back("sections/IScreenConfig.h");
        for (const std::string& header : headers) {
            if (read.count(header) == 0) read[header] = declarationsOf(TemporaryFolder::readFile(header));
            for (const Declaration& declared : read.at(header))
                if (declared.isPublic && accessor + "::" + declared.name == name && declared.text.find("static ") != 0)
                    found.push_back({name, declared, settings});
        }
    }
    return found;
}

/// Whether the getter gives the setting's value, and not only tells something of it.
bool givesValue(const Getter& getter) {
    const bool givesBool = getter.declared.text.find("bool get") != std::string::npos ||
                           getter.declared.text.find("bool is") != std::string::npos;
    return getter.settings.size() == 1 && givesBool == (getter.settings[0].type == SettingType::Bool);
}

std::vector<double> numbersIn(const std::string& text) {
    static const std::regex number("-?[0-9]+(\\.[0-9]+)?(e[-+][0-9]+)?");
    std::vector<double> numbers;
    for (std::sregex_iterator found(text.begin(), text.end(), number), none; found != none; ++found)
        numbers.push_back(std::strtod(found->str().c_str(), nullptr));
    return numbers;
}

/// Whether a comment tells what a missing item gives. Of texts of a special form it is enough that it tells anything.
bool saysDefault(const std::string& comment, const Setting& setting) {
    const std::string text = lower(setting.defaultText);
    if (comment.find("missing") == std::string::npos) return false;
    if (isNumbers(setting.type)) {
        const std::vector<double> said = numbersIn(comment);
        const std::vector<double> meant = numbersIn(text);
        return std::all_of(meant.begin(), meant.end(),
                           [&](double number) { return std::count(said.begin(), said.end(), number) > 0; });
    }
    if (setting.type != SettingType::Bool && setting.type != SettingType::Text) return true;
    return comment.find(text.empty() ? "empty" : text) != std::string::npos;
}

}  // namespace

TEST(AccessorComments, AreLookedForInEverySectionOfTheCatalogue) {
    std::set<std::string> inCatalogue;
    for (const Setting& setting : XMLConfig::catalogue()) inCatalogue.insert(toUtf8(setting.section));
    std::set<std::string> withTables;
    for (const TableSource& source : tableSources()) withTables.insert(source.section);
    EXPECT_EQ(withTables, inCatalogue);
}

TEST(AccessorComments, NameTheTableOfTheSectionAndItsPlaceOnThePage) {
    const std::string page = TemporaryFolder::readFile("docs/settings.md");
    for (const TableSource& source : tableSources()) {
        ASSERT_NE(source.accessor, "") << "no header of sections/ says \"Its settings: " << source.table << ".h ...\"";
        EXPECT_THAT(TemporaryFolder::readFile("sections/" + source.accessor + ".h"),
                    HasSubstr("docs/settings.md#" + lower(XMLConfig::detail::fromUtf8(source.section)) + ".\n"));
        EXPECT_THAT(page, HasSubstr("\n## " + source.section + "\n"));
    }
}

TEST(AccessorComments, AreThereForEverySettingThatAGetterReads) {
    std::set<std::pair<std::string, std::string>> read;
    for (const Getter& getter : getters())
        for (const Setting& setting : getter.settings) read.emplace(toUtf8(setting.section), toUtf8(setting.key));
    // Read by way of another function, or by no public getter.
    for (const char* key : {"Camera_Calibration_Points", "Reference_Camera_Calibration_Points"}) read.emplace("Camera", key);
    read.emplace("Screen", "Auto_Dimensions");
    read.emplace("MediaServer", "outputFile");
    for (const Setting& setting : XMLConfig::catalogue())
        EXPECT_EQ(read.count({toUtf8(setting.section), toUtf8(setting.key)}), 1u)
            << toUtf8(setting.section + L"/" + setting.key);
}

TEST(AccessorComments, SayMeaningAndUnitOfTheDescriptor) {
    int checked = 0;
    for (const Getter& getter : getters()) {
        const std::string comment = plain(getter.declared.comment);
        SCOPED_TRACE(getter.name + " says: " + comment);
        if (givesValue(getter)) {
            EXPECT_THAT(comment, HasSubstr(lower(getter.settings[0].meaning)));
            ++checked;
        }
        if (!givesValue(getter) && getter.settings.size() == 1) continue;
        for (const Setting& setting : getter.settings) EXPECT_THAT(comment, HasSubstr(lower(nameOf(setting.unit))));
    }
    EXPECT_GT(checked, 230);
}

TEST(AccessorComments, SayWhatAMissingItemGives) {
    const std::set<std::string> computed = {"ProjectorConfig::getInitialOffset"};  // from the resolution
    for (const Getter& getter : getters()) {
        if (!givesValue(getter) || computed.count(getter.name) > 0 || getter.declared.owner == "IScreenConfig") continue;
        EXPECT_TRUE(saysDefault(plain(getter.declared.comment), getter.settings[0]))
            << getter.name << " says: " << getter.declared.comment << "; the default is "
            << toUtf8(getter.settings[0].defaultText);
    }
}
