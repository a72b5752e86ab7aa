#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "manager/check/Findings.h"
#include "manager/check/GoneSettings.h"
#include "manager/check/Texts.h"
#include "platform/Numbers.h"
#include "store/BuildIdentity.h"
#include "store/ConfigInfo.h"
#include "store/TextForms.h"
#include "store/Tokens.h"

/// Rules on the form: names, types, words, numbers and ranges.
namespace XMLConfig::detail {
namespace {

std::wstring dotted(const std::wstring& text) {
    std::wstring result = text;
    std::replace(result.begin(), result.end(), L',', L'.');
    return result;
}

class FormCheck {
public:
    explicit FormCheck(Findings& findings) : m_findings(findings) {}

    void run() {
        checkVersion();
        for (const CheckedSection& section : m_findings.read.sections()) checkSection(section);
    }

private:
    Finding& add(const wchar_t* rule, Severity severity, const CheckedSection& section, const CheckedItem& item,
                 const std::wstring& message) {
        ++m_added;
        return m_findings.add(rule, severity, placeOf(section, item), message);
    }

    void checkVersion() {
        const std::optional<double> version = m_findings.options.storedVersion;
        if (!version) return;
        const ElementView element = rootElement(m_findings.document).child(versionElement);
        m_findings
            .add(L"XC101", Severity::Warning, {element, versionElement, L""},
                 L"is of file version " + versionText(*version) + L"; checked as it would be after the upgrade")
            .mend.commands = {{L"upgrade", L"FILE"}};
    }

    void checkSection(const CheckedSection& section) {
        if (!section.isKnown) return addUnknownSection(section);
        if (lacksID(section))
            m_findings.add(L"XC107", Severity::Error, placeOf(section), L"a " + lowerAscii(section.tag) + L" has no ID");
        if (section.hiddenBy) addHiddenSection(section);
        for (const CheckedItem& item : section.items) checkItem(section, item);
    }

    static void addHidden(Finding& finding, const ElementView& earlier) {
        finding.places = {otherPlace({earlier, addressOf(earlier), L""})};
    }

    /// No verb takes sections away, but --fix does: the second of a name, as long as it is a copy.
    void addHiddenSection(const CheckedSection& section) {
        Finding& finding = m_findings.add(L"XC106", Severity::Error, placeOf(section), hidden);
        addHidden(finding, section.hiddenBy);
        if (!haveEqualContents(section.element, section.hiddenBy)) m_differingCopies.insert(section.address());
        if (m_differingCopies.count(section.address()) == 0)
            finding.mend = mendBy(MendSafety::Safe, {L"check", L"--fix", L"--only", L"XC106", L"FILE"});
    }

    void addUnknownSection(const CheckedSection& section) {
        const std::vector<std::wstring> names = sectionNames();
        const std::wstring* const near = nearest(section.tag, names);
        m_findings.add(L"XC105", near == nullptr ? Severity::Note : Severity::Warning, placeOf(section),
                       L"there is no such section" + (near == nullptr ? L"" : L"; did you mean " + quoted(*near) + L"?"));
    }

    void checkItem(const CheckedSection& section, const CheckedItem& item) {
        if (item.hiddenBy) checkHidden(section, item);
        else if (item.kind == CheckedItem::Kind::Unknown) checkUnknown(section, item);
        else if (item.kind == CheckedItem::Kind::Value) checkValue(section, item);
    }

    /// "unset" takes the first, after which the second is read; it reaches only what stands directly in a section.
    void checkHidden(const CheckedSection& section, const CheckedItem& item) {
        Finding& finding = add(L"XC106", Severity::Warning, section, item, hidden);
        addHidden(finding, item.hiddenBy);
        const bool isReached = !section.hiddenBy && !lacksID(section) && item.element.parent() == section.element;
        if (isReached && item.isSecond && haveEqualContents(item.element, item.hiddenBy))
            finding.mend = mendBy(MendSafety::Safe, unsetCommand(placeOf(section, item)));
    }

    static bool lacksID(const CheckedSection& section) { return isDeviceSection(section.tag) && section.id.empty(); }

    /// What is known of a key that the catalogue does not know; found once, however many devices hold the key.
    struct UnknownKey {
        bool mayStand = false;             ///< whether the section may hold it
        const wchar_t* release = nullptr;  ///< since when it is gone; null for what never was
        std::wstring near;                 ///< the known key that is probably meant; "" where none is near
        std::wstring message;
    };

    void checkUnknown(const CheckedSection& section, const CheckedItem& item) {
        const auto [place, isNew] = m_unknown.try_emplace(&item.sharedKey);
        UnknownKey& key = place->second;
        if (isNew) key = lookUp(section.tag, item.key);
        if (key.mayStand) return;
        if (key.release == nullptr) return addUnknown(section, item, key);
        Finding& finding = add(L"XC112", Severity::Note, section, item, key.message);
        finding.mend = mendBy(MendSafety::Asked, unsetCommand(placeOf(section, item)));
    }

    static UnknownKey lookUp(const std::wstring& tag, const std::wstring& key) {
        if (isOpenSection(tag) || key == L"OldSectionID") return {true, nullptr, L"", L""};
        if (const wchar_t* const release = releaseWithout(tag, key))
            return {false, release, L"", L"has been gone since " + std::wstring(release)};
        std::vector<std::wstring> keys;
        for (const Setting& setting : settingsOfSection(tag)) keys.push_back(setting.key);
        const std::wstring message = L"there is no such setting";
        const std::wstring* const near = nearest(key, keys);
        if (near == nullptr) return {false, nullptr, L"", message};
        std::wstring shown = *near;
        std::replace(shown.begin(), shown.end(), L'|', L'/');
        return {false, nullptr, *near, message + L"; did you mean " + quoted(shown) + L"?"};
    }

    void addUnknown(const CheckedSection& section, const CheckedItem& item, const UnknownKey& key) {
        const std::wstring& near = key.near;
        Finding& finding = add(L"XC104", near.empty() ? Severity::Note : Severity::Warning, section, item, key.message);
        const bool isOneOfMany = near.find(L'%') != std::wstring::npos;  // of which number or ID nobody knows
        if (near.empty() || item.holdsElements || section.holds(near) || isOneOfMany) return;
        finding.mend = {MendSafety::Asked,
                        {setCommand(placeOf(section, near), item.text), unsetCommand(placeOf(section, item))}};
    }

    /// Of devices that hold the same text one after the other, only the first is looked at where all is well with it.
    void checkValue(const CheckedSection& section, const CheckedItem& item) {
        if (item.setting->type == SettingType::Element || item.content.isFormFine) return;
        const std::size_t before = m_added;
        checkText(section, item);
        item.content.isFormFine = m_added == before && !item.holdsElements;
    }

    void checkText(const CheckedSection& section, const CheckedItem& item) {
        const Setting& setting = *item.setting;
        if (item.holdsElements) {
            add(L"XC108", Severity::Error, section, item, L"holds elements instead of a value");
        } else if (m_wrongTexts.count(&item.content) != 0 || !isOfType(item.text, setting.type)) {
            addWrongType(section, item);
        } else {
            checkWords(section, item);
            if (isNumbers(setting.type)) checkNumbers(section, item);
        }
    }

    /// What is told of a text of a wrong type; made once, however many devices hold the text one after the other.
    struct WrongText {
        std::wstring message;
        std::wstring better;  ///< "" where none is known
    };

    void addWrongType(const CheckedSection& section, const CheckedItem& item) {
        const auto [place, isNew] = m_wrongTexts.try_emplace(&item.content);
        WrongText& wrong = place->second;
        if (isNew) {
            const SettingType type = item.setting->type;
            wrong.message = quoted(item.text) + L" is not of type " + nameOf(type) + L"; the application reads " +
                            shortText(m_findings.read.text(section, item.key), type);
            wrong.better = meantBy(item);
        }
        Finding& finding = add(L"XC103", Severity::Error, section, item, wrong.message);
        if (!wrong.better.empty())
            finding.mend = mendBy(MendSafety::Asked, setCommand(placeOf(section, item), wrong.better));
    }

    /// What people mean who write decimal commas, "on" and "off"; "" for anything else.
    static std::wstring meantBy(const CheckedItem& item) {
        const SettingType type = item.setting->type;
        if (type == SettingType::Bool)
            return lowerAscii(item.text) == L"on" ? L"true" : lowerAscii(item.text) == L"off" ? L"false" : L"";
        const std::wstring number = dotted(item.text);
        return type == SettingType::Double && isOfType(number, type) ? number : L"";
    }

    void checkWords(const CheckedSection& section, const CheckedItem& item) {
        const Setting& setting = *item.setting;
        const auto& words = setting.words;
        if (words.empty() || std::find(words.begin(), words.end(), item.text) != words.end()) return;
        if (setting.olderWord && item.text == setting.olderWord->text)
            return addOlderWord(section, item, *setting.olderWord);
        std::vector<std::wstring> shown;
        std::copy_if(words.begin(), words.end(), std::back_inserter(shown), [](const auto& word) { return !word.empty(); });
        const std::wstring instead = setting.othersCountAs == L"" ? L"empty" : setting.othersCountAs.value_or(L"");
        Finding& finding =
            add(L"XC109", Severity::Error, section, item,
                quoted(item.text) + L" is none of " + joined(shown) + (instead.empty() ? L"" : L"; counts as " + instead));
        mendWord(finding, placeOf(section, item), item.text, shown);
    }

    /// The application stores the newer one itself when it reads the older one.
    void addOlderWord(const CheckedSection& section, const CheckedItem& item, const OlderWord& word) {
        add(L"XC112", Severity::Note, section, item, quoted(word.text) + L" is the older name of " + quoted(word.countsAs))
            .mend = {MendSafety::Safe, {setCommand(placeOf(section, item), word.countsAs)}};
    }

    static void mendWord(Finding& finding, const Place& place, const std::wstring& text,
                         const std::vector<std::wstring>& words) {
        const auto bare = [](const std::wstring& word) {
            std::wstring lower = lowerAscii(word);
            const auto isBlank = [](wchar_t letter) { return letter == L' ' || (letter >= L'\t' && letter <= L'\r'); };
            lower.erase(std::remove_if(lower.begin(), lower.end(), isBlank), lower.end());
            return lower;
        };
        const auto isMeant = [&](const std::wstring& word) { return bare(word) == bare(text); };
        const auto same = std::find_if(words.begin(), words.end(), isMeant);
        const std::wstring* const near = same == words.end() ? nearest(text, words) : &*same;
        if (near == nullptr) return;
        finding.mend = {same == words.end() ? MendSafety::Asked : MendSafety::Safe, {setCommand(place, *near)}};
    }

    void checkNumbers(const CheckedSection& section, const CheckedItem& item) {
        const std::vector<double>& numbers = item.content.numbers();
        const auto isFinite = [](double number) { return std::isfinite(number); };
        if (!std::all_of(numbers.begin(), numbers.end(), isFinite)) {
            add(L"XC113", Severity::Error, section, item, L"is not a number");
            return;
        }
        checkNamedNumber(section, item);
        checkRange(section, item, numbers);
    }

    void checkNamedNumber(const CheckedSection& section, const CheckedItem& item) {
        const Setting& setting = *item.setting;
        if (setting.numbers.empty()) return;
        const int number = leadingInteger(item.text);
        for (const NamedNumber& named : setting.numbers)
            if (named.number == number) return;
        add(L"XC110", Severity::Warning, section, item,
            std::to_wstring(number) + L" is no " + nounOf(setting) +
                (setting.othersCountAs ? L" and counts as " + *setting.othersCountAs : L""));
    }

    static std::wstring nounOf(const Setting& setting) {
        if (setting.key == L"Fit_Solver") return L"mapper";
        return setting.key == L"SizeDefinition" ? L"definition of the size" : L"scaling mode";
    }

    void checkRange(const CheckedSection& section, const CheckedItem& item, const std::vector<double>& numbers) {
        const auto& range = item.setting->range;
        if (!range) return;
        for (const double number : numbers) {
            if (contains(*range, number)) continue;
            add(L"XC114", range->ownJudgement ? Severity::Warning : Severity::Error, section, item,
                numberBeyond(number, {range->low, range->high}) + L" is outside " + textOf(*range));
            return;
        }
    }

    static constexpr const wchar_t* hidden = L"is hidden by an earlier one";

    Findings& m_findings;
    std::size_t m_added = 0;
    std::unordered_set<std::wstring> m_differingCopies;  // addresses of sections of which one so far is no copy
    std::unordered_map<const SectionKey*, UnknownKey> m_unknown;
    std::unordered_map<const SharedText*, WrongText> m_wrongTexts;
};

}  // namespace

void checkForm(Findings& findings) {
    FormCheck(findings).run();
    checkConflicts(findings);
}

}  // namespace XMLConfig::detail
