#include <algorithm>
#include <cmath>
#include <ctime>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "manager/check/Findings.h"
#include "manager/check/NamedFiles.h"
#include "platform/Clock.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "store/Tokens.h"

/// Rules on settings that change nothing, on files, times and what a run does.
namespace XMLConfig::detail {
namespace {

// Settings without effect.

bool counts(const Findings& findings, const CheckedSection& section, const EffectCondition& condition) {
    const std::wstring& text = condition.section.empty() ? findings.read.text(section, condition.key)
                                                         : findings.read.text(condition.section, condition.key);
    const bool isThere = std::find(condition.texts.begin(), condition.texts.end(), text) != condition.texts.end();
    return isThere == condition.whileOneOf;
}

bool isOrdinary(const Setting& setting, const std::wstring& value) {
    return value == setting.defaultText || value == setting.initialText;
}

void checkItemEffect(Findings& findings, const CheckedSection& section, const CheckedItem& item) {
    if (item.setting == nullptr || !item.setting->countsWhile || item.hiddenBy) return;
    const EffectCondition& condition = *item.setting->countsWhile;
    const ReadValue* const value = valueOf(item);
    if (value == nullptr || isOrdinary(*item.setting, value->text()) || counts(findings, section, condition)) return;
    const std::wstring& tag = condition.section.empty() ? section.tag : condition.section;
    const CheckedSection& other = condition.section.empty() ? section : findings.read.section(tag);
    std::wstring name = tag + L"/" + condition.key;
    std::replace(name.begin(), name.end(), L'|', L'/');
    const std::wstring text = findings.read.text(condition.section.empty() ? section : other, condition.key);
    Finding& finding = findings.add(
        L"XC901", Severity::Note, placeOf(section, item),
        L"has no effect now: " + name + L" is " + (other.element ? text : findings.read.text(tag, condition.key)));
    if (other.holds(condition.key)) finding.places = {otherPlace(placeOf(other, condition.key), text)};
}

// Files.

void addMissing(Findings& findings, const NamedFile& file) {
    const bool isLost = file.otherCase.empty();
    findings.add(L"XC902", isLost ? Severity::Error : Severity::Warning, file.place,
                 L"there is no " + file.name + (isLost ? L"" : L", but " + file.otherCase));
}

void checkFiles(Findings& findings) {
    if (findings.options.file.empty() || !findings.options.looksForFiles || !findings.wants(L"XC902")) return;
    const std::vector<NamedFile> files = namedFiles(findings);
    const auto isLost = [](const NamedFile& file) { return !file.isThere && file.otherCase.empty(); };
    if (files.empty()) return;
    if (!std::all_of(files.begin(), files.end(), isLost)) {
        for (const NamedFile& file : files)
            if (!file.isThere) addMissing(findings, file);
        return;
    }
    const std::wstring all = files.size() == 1
                                 ? L"the file that it names is not here"
                                 : L"none of the " + std::to_wstring(files.size()) + L" files that it names is here";
    Finding& finding = findings.add(L"XC902", Severity::Note, Place(), all + L"; is this a copy?");
    for (const NamedFile& file : files) finding.places.push_back(otherPlace(file.place, file.name));
}

/// The folded path of a file that a run writes, with '/' only, for comparing it with others.
std::wstring written(const Findings& findings, const std::wstring& name) {
    std::wstring path = foldPath(joinPath(folderOf(findings.options.file), name));
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return path;
}

void checkOverwriting(Findings& findings) {
    struct Written {
        const wchar_t* tag;
        const wchar_t* key;
    };
    constexpr Written all[] = {
        {L"System", L"Skorra_File"}, {L"Color", L"Advanced_Color_Filename"}, {L"MediaServer", L"outputFile"}};
    const std::wstring own = written(findings, lastComponent(findings.options.file));
    std::map<std::wstring, std::wstring> owners;
    for (const auto& [tag, key] : all) {
        const std::wstring name = findings.read.section(tag).stored(key);
        if (name.empty()) continue;
        const Place place = placeOf(findings, tag, key);
        const std::wstring path = written(findings, name);
        const auto [owner, isNew] = owners.emplace(path, place.address);
        if (!findings.options.file.empty() && path == own)
            findings.add(L"XC908", Severity::Error, place, L"names this configuration; a run would overwrite it");
        else if (!isNew)
            findings.add(L"XC908", Severity::Error, place,
                         L"names the file of " + owner->second + L"; one overwrites the other");
    }
}

// Times.

/// Days since 1970-01-01 of a day of the calendar.
long long daysUpTo(long long year, long long month, long long day) {
    year -= month <= 2 ? 1 : 0;
    const long long era = (year >= 0 ? year : year - 399) / 400;
    const long long yearOfEra = year - era * 400;
    const long long dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

/// Seconds of "2019-03-11 14:05:09"; nothing for other text.
std::optional<long long> secondsOf(const std::wstring& text) {
    const std::wstring form = L"dddd-dd-dd dd:dd:dd";
    if (text.size() != form.size()) return std::nullopt;
    for (std::size_t i = 0; i < form.size(); ++i)
        if (form[i] == L'd' ? text[i] < L'0' || text[i] > L'9' : text[i] != form[i]) return std::nullopt;
    const auto number = [&](std::size_t at, std::size_t length) -> long long {
        return leadingInteger(text.substr(at, length));
    };
    return daysUpTo(number(0, 4), number(5, 2), number(8, 2)) * 86400 + number(11, 2) * 3600 + number(14, 2) * 60 +
           number(17, 2);
}

std::wstring timeText(long long seconds) {
    std::wstring text = utcStamp(seconds);  // 2019-03-11T14-05-09
    std::replace(text.begin(), text.end(), L'T', L' ');
    std::replace(text.begin() + 11, text.end(), L'-', L':');
    return text;
}

void checkTimes(Findings& findings) {
    const long long lastRun = findings.read.integer(L"SiteAnalytics", L"LastRunTimestamp");
    const long long visit = findings.read.integer(L"SiteAnalytics", L"VisitTimestamp");
    const std::wstring told = findings.read.text(L"ProjectorApprovedSlots", L"TimeOfLastRun");
    const std::optional<long long> slotsSay = secondsOf(told);
    const auto add = [&](const wchar_t* tag, const wchar_t* key, const std::wstring& message) {
        findings.add(L"XC903", Severity::Note, placeOf(findings, tag, key), message);
    };
    constexpr long long zones = 15LL * 3600;
    if (slotsSay && lastRun > 0 && std::llabs(*slotsSay - lastRun) > zones)
        add(L"ProjectorApprovedSlots", L"TimeOfLastRun", told + L", but SiteAnalytics says " + timeText(lastRun));
    if (lastRun > 0 && visit > lastRun)
        add(L"SiteAnalytics", L"VisitTimestamp", timeText(visit) + L" is after the last run, " + timeText(lastRun));
    if (slotsSay && *slotsSay > now() + zones)
        add(L"ProjectorApprovedSlots", L"TimeOfLastRun", told + L" is later than now");
    for (const wchar_t* const key : {L"LastRunTimestamp", L"VisitTimestamp"}) {
        const long long time = findings.read.integer(L"SiteAnalytics", key);
        if (time > now()) add(L"SiteAnalytics", key, timeText(time) + L" is later than now");
    }
}

void checkReferences(Findings& findings) {
    const int mappings = findings.read.integer(L"System", L"Reference_Mappings_Timestamp");
    if (mappings <= 0) return;
    for (const CheckedSection* camera : findings.read.cameras())
        if (findings.read.integer(*camera, L"Camera_Reference_Image_Timestamp") > mappings)
            findings.add(L"XC904", Severity::Warning, placeOf(*camera, L"Camera_Reference_Image_Timestamp"),
                         L"the reference image is newer than the reference mappings");
}

void checkRun(Findings& findings) {
    const bool isBlendsOnly = findings.read.flag(L"Geometry", L"Do_CalculateBlendsOnly_Run");
    if (isBlendsOnly && !findings.read.flag(L"Geometry", L"Blend_Run"))
        findings.add(L"XC907", Severity::Error, placeOf(findings, L"Geometry", L"Do_CalculateBlendsOnly_Run"),
                     L"a run computes nothing");
}

}  // namespace

void checkEffect(Findings& findings) {
    for (const CheckedSection& section : findings.read.sections())
        for (const CheckedItem& item : section.items) checkItemEffect(findings, section, item);
    checkFiles(findings);
    checkTimes(findings);
    checkReferences(findings);
    checkRun(findings);
    checkOverwriting(findings);
}

}  // namespace XMLConfig::detail
