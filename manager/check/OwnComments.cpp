#include "manager/check/OwnComments.h"

#include <algorithm>

#include "manager/Check.h"
#include "manager/SettingSearch.h"
#include "manager/check/Findings.h"
#include "store/Address.h"
#include "store/CorvaneException.h"

namespace XMLConfig::detail {
namespace {

constexpr const wchar_t* blanks = L" \t\n\r";
constexpr const wchar_t* acceptingWords = L"xmlconfig accepts";

/// What follows the words, without blanks at the ends; nothing for a comment that begins otherwise.
std::optional<std::wstring> restAfter(const std::wstring& words, const std::wstring& comment) {
    const std::size_t begin = comment.find_first_not_of(blanks);
    if (begin == std::wstring::npos || comment.compare(begin, words.size(), words) != 0) return std::nullopt;
    const std::size_t rest = comment.find_first_not_of(blanks, begin + words.size());
    if (rest == std::wstring::npos || rest == begin + words.size()) return std::nullopt;
    return comment.substr(rest, comment.find_last_not_of(blanks) + 1 - rest);
}

/// Nothing where what the conflict names is no address.
std::optional<Address> settingAddressOf(const Conflict& conflict) {
    try {
        return parseAddress(conflict.address);
    } catch (const CorvaneParseException&) {
        return std::nullopt;
    }
}

std::wstring nameOf(const Findings& findings, const Address& address) {
    const CheckedSection* const device =
        address.section == L"Camera" ? findings.read.camera(address.sectionID) : findings.read.projector(address.sectionID);
    return device == nullptr || device->tag != address.section ? std::wstring() : device->name();
}

void checkConflict(Findings& findings, const CommentView& comment, const Conflict& conflict) {
    const std::optional<Address> address = settingAddressOf(conflict);
    const Setting* const setting = address ? knownSetting(*address) : nullptr;
    Place place{comment.next ? comment.next : comment.around, conflict.address, L""};
    if (address) {
        const ElementView stored = findElement(findings.document, *address);
        place = {stored ? stored : place.element, addressText(*address), nameOf(findings, *address)};
    } else {
        place.address = addressOf(place.element);
    }
    const auto shown = [&](const std::wstring& text) {
        if (text.empty()) return std::wstring(L"nothing");
        return setting == nullptr ? text : findings.units.value(text, *setting);
    };
    Finding& finding = findings.add(L"XC111", Severity::Error, place,
                                    L"is not settled: ours " + shown(conflict.ours) + L", theirs " + shown(conflict.theirs));
    if (address) finding.mend.commands = {setCommand(place, conflict.ours)};
}

}  // namespace

std::vector<Acceptance> acceptancesOf(const std::vector<CommentView>& comments) {
    std::vector<Acceptance> acceptances;
    for (const CommentView& comment : comments)
        if (const std::optional<std::wstring> rest = restAfter(acceptingWords, comment.text))
            acceptances.push_back({rest->substr(0, rest->find_first_of(L": \t\r\n")), comment.around, comment.text});
    return acceptances;
}

std::optional<Conflict> conflictOf(const std::wstring& comment) {
    const std::optional<std::wstring> rest = restAfter(L"xmlconfig conflict", comment);
    if (!rest) return std::nullopt;
    const std::wstring oursMark = L" ours=";
    const std::wstring theirsMark = L" theirs=";
    const std::size_t base = rest->find(L" base=");
    const std::size_t ours = rest->find(oursMark);
    const std::size_t theirs = rest->find(theirsMark, ours == std::wstring::npos ? 0 : ours);
    Conflict conflict{rest->substr(0, std::min({base, ours, theirs})), L"", L""};
    if (ours != std::wstring::npos) {
        const std::size_t begin = ours + oursMark.size();
        conflict.ours = rest->substr(begin, theirs == std::wstring::npos ? theirs : theirs - begin);
    }
    if (theirs != std::wstring::npos) conflict.theirs = rest->substr(theirs + theirsMark.size());
    return conflict;
}

void checkConflicts(Findings& findings) {
    for (const CommentView& comment : findings.comments)
        if (const std::optional<Conflict> conflict = conflictOf(comment.text)) checkConflict(findings, comment, *conflict);
}

}  // namespace XMLConfig::detail

namespace XMLConfig {

std::wstring acceptanceText(const std::wstring& rule, const std::wstring& reason) {
    return detail::acceptingWords + (L" " + rule) + L": " + reason;
}

}  // namespace XMLConfig
