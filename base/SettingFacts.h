#pragma once

#include <cstddef>
#include <initializer_list>
#include <limits>
#include <string_view>

#include "base/Setting.h"

namespace XMLConfig::detail {

/// A list of at most N entries in a constant expression; one entry more does not compile.
template <typename T, std::size_t N>
struct ShortList {
    T entries[N] = {};
    std::size_t count = 0;

    constexpr ShortList() = default;
    constexpr ShortList(std::initializer_list<T> list) {
        for (const T& entry : list) entries[count++] = entry;
    }
    constexpr const T* begin() const { return entries; }
    constexpr const T* end() const { return entries + count; }
};

/// What is known of a setting besides its key and values, for people and for checks: `means(L"...").in(Unit::Pixels)`.
struct SettingFacts {
    struct NumberName {
        int number = 0;
        const wchar_t* name = L"";
    };
    struct RenamedWord {
        const wchar_t* older = nullptr;
        const wchar_t* word = nullptr;
    };
    using Words = ShortList<const wchar_t*, 10>;
    using Numbers = ShortList<NumberName, 6>;
    using Texts = ShortList<const wchar_t*, 4>;
    struct Condition {
        const wchar_t* section = L"";
        const wchar_t* key = L"";
        Texts texts;
        bool whileOneOf = true;
    };

private:
    static constexpr double infinity = std::numeric_limits<double>::infinity();

    // Stands before its callers, because Clang 14 cannot evaluate them otherwise.
    template <typename Field, typename Value>
    constexpr SettingFacts with(Field SettingFacts::*field, const Value& value) const {
        SettingFacts facts = *this;
        facts.*field = value;
        return facts;
    }
    constexpr SettingFacts ranging(double low, double high, bool withoutLow) const {
        SettingFacts facts = with(&SettingFacts::range, Range{low, high, withoutLow, false});
        facts.hasRange = true;
        return facts;
    }

public:
    constexpr SettingFacts in(Unit value) const { return with(&SettingFacts::unit, value); }
    constexpr SettingFacts of(SettingClass value) const { return with(&SettingFacts::settingClass, value); }
    /// The section that is asked for the same key when the item is missing.
    constexpr SettingFacts inheritedFrom(const wchar_t* section) const { return with(&SettingFacts::parent, section); }
    constexpr SettingFacts onlyRead() const { return with(&SettingFacts::readOnly, true); }
    constexpr SettingFacts byRuns() const { return with(&SettingFacts::writtenByRuns, true); }

    constexpr SettingFacts oneOf(std::initializer_list<const wchar_t*> list) const {
        return with(&SettingFacts::words, Words(list));
    }
    constexpr SettingFacts oneOf(std::initializer_list<NumberName> list) const {
        return with(&SettingFacts::numbers, Numbers(list));
    }
    constexpr SettingFacts elseCountsAs(const wchar_t* text) const { return with(&SettingFacts::othersCountAs, text); }
    /// The application takes the one word, which it stored in older releases, for the other.
    constexpr SettingFacts formerly(const wchar_t* older, const wchar_t* word) const {
        return with(&SettingFacts::renamed, RenamedWord{older, word});
    }
    /// What a missing item reads as, where the default's text alone does not tell.
    constexpr SettingFacts missingMeans(const wchar_t* text) const { return with(&SettingFacts::defaultMeaning, text); }

    constexpr SettingFacts within(double low, double high) const { return ranging(low, high, false); }
    constexpr SettingFacts atLeast(double low) const { return ranging(low, infinity, false); }
    constexpr SettingFacts above(double low, double high = infinity) const { return ranging(low, high, true); }
    /// The range is this library's own judgement, which nobody prescribes: what lies outside is worth a warning only.
    constexpr SettingFacts inOurJudgement() const {
        SettingFacts facts = *this;
        facts.range.ownJudgement = true;
        return facts;
    }

    /// Has an effect only while the setting at `key` of `section` (empty: its own) reads one of the texts.
    constexpr SettingFacts countsWhile(const wchar_t* section, const wchar_t* key,
                                       std::initializer_list<const wchar_t*> texts) const {
        return with(&SettingFacts::condition, Condition{section, key, Texts(texts), true});
    }
    constexpr SettingFacts countsUnless(const wchar_t* section, const wchar_t* key,
                                        std::initializer_list<const wchar_t*> texts) const {
        return with(&SettingFacts::condition, Condition{section, key, Texts(texts), false});
    }

    /// Whether the text is one of the words, case and all.
    constexpr bool hasWord(std::wstring_view text) const {
        for (const wchar_t* word : words)
            if (word == text) return true;
        return false;
    }
    /// Whether the number is one of those with a name.
    constexpr bool hasNumber(int number) const {
        for (const NumberName& named : numbers)
            if (named.number == number) return true;
        return false;
    }

    const wchar_t* meaning = L"";
    Unit unit = Unit::None;
    SettingClass settingClass = SettingClass::Rest;
    const wchar_t* parent = L"";
    bool readOnly = false;
    bool writtenByRuns = false;
    Words words;
    Numbers numbers;
    const wchar_t* othersCountAs = nullptr;
    RenamedWord renamed;
    const wchar_t* defaultMeaning = L"";
    bool hasRange = false;
    Range range;
    Condition condition;
};

/// One line for people. It follows the key, and so begins with a small letter.
constexpr SettingFacts means(const wchar_t* text) {
    SettingFacts facts;
    facts.meaning = text;
    return facts;
}

}  // namespace XMLConfig::detail
