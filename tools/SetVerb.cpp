#include <unordered_map>

#include "manager/SettingSearch.h"
#include "platform/Utf8.h"
#include "store/Address.h"
#include "tools/AskedChange.h"
#include "tools/Changing.h"
#include "tools/Configuration.h"
#include "tools/DescribeJson.h"
#include "tools/Output.h"
#include "tools/Places.h"
#include "tools/Reading.h"
#include "tools/SnippetParts.h"
#include "tools/Suggestion.h"
#include "tools/ValueInput.h"
#include "tools/Verb.h"
#include "tools/Writing.h"

namespace tool {
namespace {

using XMLConfig::Address;
using XMLConfig::Assignment;
using XMLConfig::ElementView;
using XMLConfig::Setting;

[[noreturn]] void refuse(const std::wstring& address, const std::wstring& fault) { throw Refusal(address + L": " + fault); }
[[noreturn]] void refuse(const Address& address, const std::wstring& fault) {
    refuse(XMLConfig::addressText(address), fault);
}

/// Whether an ID only stands for devices that the document holds, so that --force cannot make one of that ID.
bool standsForOthers(const std::wstring& id) { return id == L"*" || id.substr(0, 1) == L"#"; }

/// Refuses to change a device, or another section with an ID, that is not there.
[[noreturn]] void refuseMissingSection(const Address& address, const ConfigInfo& document) {
    const std::wstring advice = suggestionFor(document, address);
    const bool canBeMade = !address.sectionID.empty() && !standsForOthers(address.sectionID);
    const bool isNear = !advice.empty() && advice.back() == L'?';
    refuse(address, L"there is no such section" + advice + (canBeMade && !isNear ? L"; --force adds it" : L""));
}

[[noreturn]] void refuseUnknown(const Address& address, const ConfigInfo& document) {
    const std::wstring nearest = suggestionFor(document, address);
    const bool hasSettings = !XMLConfig::settingsOfSection(address.section).empty();
    refuse(Showing(document).address(address),
           L"there is no such setting" + (!nearest.empty()
                                              ? nearest
                                              : L"; 'xmlconfig describe" + (hasSettings ? L" " + address.section : L"") +
                                                    L"' lists what there is; --force stores it all the same"));
}

/// Refuses a place that only --force lets a value be stored at.
void checkKnown(const Address& address, const ConfigInfo& document) {
    const bool mayBeMissing = address.sectionID.empty() && !XMLConfig::isDeviceSection(address.section);
    if (!mayBeMissing && !document.doesSectionExist(address.section, address.sectionID))
        refuseMissingSection(address, document);
    const bool isKnown = XMLConfig::knownSetting(address) != nullptr || XMLConfig::isOpenSection(address.section);
    if (!isKnown && !XMLConfig::findElement(document, address)) refuseUnknown(address, document);
}

/// Advice for a value that does not fit its setting.
std::wstring adviceFor(const Setting& setting, const ValueFault& fault) {
    if (!fault.offersForce) return L"";
    const bool isAdvised = fault.message.back() == L'?';
    return (isAdvised ? L"" : L"; 'xmlconfig describe " + addressOf(setting) + L"' tells what fits;") +
           std::wstring(L" --force stores it all the same");
}

/// Refuses a value that only --force stores, and warns of one that makes little sense.
void checkValue(const Assignment& assignment, const std::wstring& written, const ConfigInfo& document) {
    const Setting* const setting = XMLConfig::knownSetting(assignment.address);
    if (setting == nullptr) return;
    const std::optional<ValueFault> fault = faultOf(written, *setting);
    if (!fault) return;
    const std::wstring message = Showing(document).address(assignment.address) + L": " + fault->message;
    if (!fault->isWarning) throw Refusal(message + adviceFor(*setting, *fault));
    complain(L"warning: " + message);
}

/// Whether a place above the address holds a value, so that no element can stand in it.
bool standsInValue(const Address& address, const ConfigInfo& document) {
    Address above = address;
    for (std::size_t end = address.key.rfind(L'|'); end != std::wstring::npos && end != 0;
         end = address.key.rfind(L'|', end - 1)) {
        above.key.resize(end);
        if (const ElementView element = XMLConfig::findElement(document, above))
            return !element.firstChild() && !element.text().empty();
    }
    return false;
}

void checkAssignment(const Assignment& assignment, const std::wstring& written, const ConfigInfo& document, bool force) {
    const Address& address = assignment.address;
    if (address.key.empty()) refuse(address, L"a section has no value; name a setting in it");
    if (XMLConfig::isHeaderElement(address.section)) refuse(address, L"there are no settings in " + address.section);
    if (!force) checkKnown(address, document);
    if (!force) checkValue(assignment, written, document);
    const bool holdsOthers = bool(XMLConfig::findElement(document, address).firstChild());
    const auto setting = XMLConfig::findSetting(address);
    const bool holdsElement = setting && setting->type == XMLConfig::SettingType::Element;
    if (!holdsElement && holdsOthers) refuse(address, L"holds other settings and no value");
    if (standsInValue(address, document)) refuse(address, L"a value stands where this setting belongs");
    if (holdsElement && assignment.value.empty() && holdsOthers) refuse(address, L"an XML element cannot be made empty");
    if (holdsElement && !address.subSection.empty()) refuse(address, L"an XML element stands directly in its section");
}

void store(ConfigInfo& document, const Assignment& assignment) {
    const auto& [section, sectionID, subSection, subSectionID, key] = assignment.address;
    const auto setting = XMLConfig::findSetting(assignment.address);
    if (setting && setting->type == XMLConfig::SettingType::Element)
        document.setStringItemAsDOMElement(section, key, assignment.value, sectionID);
    else document.setStringItem(section, key, assignment.value, sectionID, subSection, subSectionID);
}

/// The places that a change is for; where no device fits, the one that only --force can make.
std::vector<Address> placesToSet(const ConfigInfo& document, const Address& operand) {
    std::vector<Address> places = placesOf(document, operand);
    if (!places.empty()) return places;
    if (standsForOthers(operand.sectionID)) refuseMissingSection(operand, document);
    return {operand};
}

/// Changes a document one change after the other; each is checked with the earlier ones already done.
class Changing {
public:
    Changing(ConfigInfo& document, bool force) : m_document(document), m_force(force) {}

    void apply(const AskedChange& asked) {
        for (const Address& place : placesToSet(m_document, asked.assignment.address)) {
            if (asked.part.empty()) change(place, asked.assignment.value);
            else changePart(place, asked.part, asked.assignment.value);
        }
    }
    /// One change for each place that differs now, however often it was set.
    [[nodiscard]] std::vector<Change> changes() const {
        std::vector<Change> changes;
        for (const Change& change : m_changes)
            if (change.old != change.now) changes.push_back(change);
        return changes;
    }

private:
    void add(Change change) {
        const auto [known, isNew] = m_places.emplace(change.address, m_changes.size());
        if (isNew) m_changes.push_back(std::move(change));
        else m_changes[known->second].now = std::move(change.now);
    }

    void change(const Address& place, const std::wstring& written) {
        const Setting* const setting = XMLConfig::knownSetting(place);
        const Assignment assignment{place, setting == nullptr ? written : storedForm(written, *setting)};
        checkAssignment(assignment, written, m_document, m_force);
        Change change = beginChange(m_document, place);
        store(m_document, assignment);
        endChange(change, m_document);
        add(std::move(change));
    }

    void changePart(const Address& place, const std::wstring& part, const std::wstring& value) {
        const std::wstring xml = m_document.getStringItemAsDOMElement(place.section, place.key, L"", place.sectionID);
        Change change = beginChange(m_document, place);
        change.address += L"/" + part;
        change.setting = nullptr;
        try {
            change.old = partIn(xml, part);
            change.now = value;
            if (change.old == change.now) return;
            store(m_document, {place, withPart(xml, part, value)});
        } catch (const Refusal& fault) {
            throw Refusal(change.address + L": " + XMLConfig::wideFromUtf8(fault.what()));
        }
        add(std::move(change));
    }

    ConfigInfo& m_document;
    bool m_force;
    std::vector<Change> m_changes;
    std::unordered_map<std::wstring, std::size_t> m_places;  // where in the changes that of an address is
};

}  // namespace

std::vector<Change> applySet(ConfigInfo& document, const std::wstring& assignment) {
    Changing changing(document, false);
    changing.apply(askedChangeOf(assignment));
    return changing.changes();
}

void setUpSet(Options& options, Request& request) {
    options.value("FILE", request.file, "The file to change").required().notEmpty(emptyName);
    options.value("CHANGE", request.operands,
                  "ADDRESS=VALUE: where a value is stored, and the value; a number may have a unit: 24deg, 1.2rad, 5.2m, "
                  "340mm, 17ft, 12in");
    options
        .value("--from", request.lineFile,
               "Take changes from a file, one a line, as 'show --flat' prints them; - for "
               "standard input")
        .valueName("LINES");
    options.flag("--force", request.force,
                 "Add unknown settings and sections too, store values of another form, and write what makes errors");
    setUpChanging(options, request);
    options.footer(addressHelp);
}

ExitStatus runSet(const Request& request) {
    if (request.operands.empty() && request.lineFile.empty()) throw WrongOperands("CHANGE or --from is required");
    refuseStandardInput(request);
    const std::vector<AskedChange> changes = askedChanges(request);
    const auto lock = request.dryRun ? nullptr : lockForWriting(request.file, request);
    const std::unique_ptr<ConfigInfo> document = openDocument(request.file);
    requireLatestVersion(*document, request.file);
    const DocumentBefore before(*document, request.file);
    Changing changing(*document, request.force);
    for (const AskedChange& change : changes) changing.apply(change);
    return finishChange("set", *document, changing.changes(), before, request);
}

}  // namespace tool
