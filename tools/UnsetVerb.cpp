#include <set>
#include <utility>

#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "tools/Changing.h"
#include "tools/Configuration.h"
#include "tools/Places.h"
#include "tools/Reading.h"
#include "tools/SnippetParts.h"
#include "tools/Suggestion.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

using XMLConfig::Address;

[[noreturn]] void refuse(const Address& place, const std::wstring& fault) {
    throw Refusal(XMLConfig::addressText(place) + L": " + fault);
}

/// The element that is removed as a whole because it holds the place: a child of its section.
Address wholeOf(Address place) {
    if (!place.subSection.empty()) place.key.clear();
    else place.key = place.key.substr(0, place.key.find(L'|'));
    return place;
}

void remove(ConfigInfo& document, const Address& place) {
    if (place.key.empty() && place.subSection.empty()) refuse(place, L"is a whole section; unset takes settings");
    const Address whole = wholeOf(place);
    const std::wstring above = XMLConfig::addressText(whole);
    if (XMLConfig::addressText(place) != above) refuse(place, L"can be unset with all of " + above + L" only");
    if (place.subSection.empty()) document.removeItem(place.section, place.key, place.sectionID);
    else document.removeSubSection(place.section, place.subSection, place.sectionID, place.subSectionID);
}

/// One change for each text that goes.
void unset(ConfigInfo& document, const Address& place, std::vector<Change>& changes) {
    std::vector<Change> gone;
    const XMLConfig::Setting* const setting = XMLConfig::knownSetting(place);
    const bool isOne = setting != nullptr && setting->type == XMLConfig::SettingType::Element;
    if (isOne) gone.push_back(beginChange(document, place));
    for (const XMLConfig::StoredText& text : textsAt(XMLConfig::findElement(document, place), place))
        if (!isOne) gone.push_back(beginChange(document, text.place));
    remove(document, place);
    for (Change& change : gone) {
        endChange(change, document);
        changes.push_back(std::move(change));
    }
}

/// The places of an operand that store something; throws where none does.
std::vector<Address> storedPlaces(const ConfigInfo& document, const Address& operand, const std::string& file) {
    std::vector<Address> stored;
    for (const Address& place : placesOf(document, operand))
        if (XMLConfig::findElement(document, place)) stored.push_back(place);
    if (!stored.empty()) return stored;
    throw Refusal(XMLConfig::wideFromUtf8(file) + L": holds no " + XMLConfig::addressText(operand) +
                  suggestionFor(document, operand));
}

/// The places of all operands. One that several of them mean counts once.
std::vector<Address> placesToUnset(const ConfigInfo& document, const std::vector<Address>& operands,
                                   const std::string& file) {
    std::vector<Address> places;
    std::set<std::wstring> met;
    for (const Address& operand : operands)
        for (Address& place : storedPlaces(document, operand, file))
            if (met.insert(XMLConfig::addressText(place)).second) places.push_back(std::move(place));
    return places;
}

}  // namespace

std::vector<Change> applyUnset(ConfigInfo& document, const std::wstring& address, const std::string& file) {
    std::vector<Change> changes;
    for (const Address& place : storedPlaces(document, XMLConfig::parseAddress(address), file))
        unset(document, place, changes);
    return changes;
}

void setUpUnset(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to change").required().notEmpty(emptyName);
    options.value("ADDRESS", request.operands, "What is to be stored no more, so that it is inherited or its default counts")
        .required();
    options.flag("--force", request.force, "Write what makes errors too");
    setUpChanging(options, request);
    options.footer(addressHelp);
}

ExitStatus runUnset(const Request& request) {
    refuseStandardInput(request);
    std::vector<Address> operands;
    for (const std::string& operand : request.operands) operands.push_back(wholeAddressOf(operand));
    const auto lock = request.dryRun ? nullptr : lockForWriting(request.file, request);
    const std::unique_ptr<ConfigInfo> document = openDocument(request.file);
    requireLatestVersion(*document, request.file);
    const DocumentBefore before(*document, request.file);
    std::vector<Change> changes;
    for (const Address& place : placesToUnset(*document, operands, request.file)) unset(*document, place, changes);
    return finishChange("unset", *document, changes, before, request);
}

}  // namespace tool
