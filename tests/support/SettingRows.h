#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "base/SettingTable.h"
#include "store/ConfigInfo.h"
#include "tests/support/DocumentTexts.h"

/// Table-driven tests of a section's plain settings. A test writes its rows with literals:
///
///     using Rows = SettingRows<ColorConfig>;
///     Rows colorRows() {
///         return Rows([](ConfigInfo* document) { return std::make_unique<ColorConfig>(document, L""); })
///             .row(&ColorConfig::getGamma, &ColorConfig::setGamma, L"Gamma", {2.2, L"2.200000000000000e+00"},
///                  {1.5, L"1.500000000000000e+00"}, L"1.000000000000000e+00")
///             .readOnly(&ColorConfig::getSteps, L"Steps", {8, L"8"}, {12, L"12"})
///             .catalogued(L"Curve_%d", L"", L"");
///     }
///     TEST(ColorConfig, SettingsKeepToTheirRows) { colorRows().check(); }
///     TEST(ColorConfig, TableEqualsTheRows) { colorRows().checkTable(detail::colorItems); }
///     TEST(ColorConfig, NewSectionHoldsTheRowsInOrder) { colorRows().checkInitialize(); }
///
/// The rows stand in the order in which initialize() writes.
namespace XMLConfig::tests {

/// Equality of values; specialised for records without operator==.
template <typename T>
struct SameValue {
    static bool of(const T& left, const T& right) { return left == right; }
};
template <>
struct SameValue<BlackLevelBlending::PondOfMirrors> {
    using Pond = BlackLevelBlending::PondOfMirrors;
    static bool of(const Pond& left, const Pond& right) {
        return left.Top == right.Top && left.Bottom == right.Bottom && left.Left == right.Left && left.Right == right.Right;
    }
};
template <>
struct SameValue<Frustum> {
    static bool of(const Frustum& left, const Frustum& right) {
        return left.Offset == right.Offset && left.RotationYPR == right.RotationYPR && left.FOVLeft == right.FOVLeft &&
               left.FOVRight == right.FOVRight && left.FOVTop == right.FOVTop && left.FOVBottom == right.FOVBottom &&
               left.ResolutionX == right.ResolutionX && left.ResolutionY == right.ResolutionY;
    }
};

/// A value and its stored text, both written out by the test.
template <typename T>
struct Sample {
    T value;
    std::wstring text;
};

template <typename Section>
class SettingRows {
    template <typename Getter>
    using ValueOf = std::decay_t<std::invoke_result_t<Getter, Section&>>;

    /// Whether a member function takes exactly `Value`; the descriptor holds setters to its own type. Of other callables
    /// nothing is known.
    template <typename Value, typename Setter>
    static constexpr bool setsWhatIsGot() {
        if constexpr (std::is_member_function_pointer_v<Setter>)
            return std::is_same_v<Value, decltype(argumentOf(std::declval<Setter>()))>;
        else return true;
    }
    template <typename Result, typename Class, typename Argument>
    static std::decay_t<Argument> argumentOf(Result (Class::*)(Argument));

public:
    using Make = std::function<std::unique_ptr<Section>(ConfigInfo*)>;

    explicit SettingRows(Make make) : m_make(std::move(make)) {}

    /// A setting with both accessors. `fallback` is what a missing item reads as, `initialText` the stored text of a new
    /// section. Accessors are members or callables taking the section first.
    template <typename Getter, typename Setter>
    SettingRows& row(Getter getter, Setter setter, const std::wstring& key, const Sample<ValueOf<Getter>>& fallback,
                     const Sample<ValueOf<Getter>>& sample, std::optional<std::wstring> initialText = {}) {
        static_assert(setsWhatIsGot<ValueOf<Getter>, Setter>(), "the getter gives another type than the setter takes");
        Row added = readRow(getter, key, fallback, sample, std::move(initialText));
        added.setSample = [setter, sample](Section& section) { std::invoke(setter, section, sample.value); };
        m_rows.push_back(std::move(added));
        return *this;
    }
    /// A setting without a setter.
    template <typename Getter>
    SettingRows& readOnly(Getter getter, const std::wstring& key, const Sample<ValueOf<Getter>>& fallback,
                          const Sample<ValueOf<Getter>>& sample) {
        m_rows.push_back(readRow(getter, key, fallback, sample, {}));
        m_rows.back().readOnly = true;
        return *this;
    }
    /// A setting whose accessors have tests of their own; it counts only for the catalogue.
    SettingRows& catalogued(const std::wstring& key, const std::wstring& defaultText,
                            std::optional<std::wstring> initialText = {}, bool readOnly = false) {
        Row added;
        added.key = added.catalogueKey = key;
        added.defaultText = defaultText;
        added.initialText = std::move(initialText);
        added.readOnly = readOnly;
        m_rows.push_back(std::move(added));
        return *this;
    }
    /// The last row's key as the catalogue spells it, where that differs ("ACT_Address_%d").
    SettingRows& as(const std::wstring& catalogueKey) {
        m_rows.back().catalogueKey = catalogueKey;
        return *this;
    }

    /// Checks every row against documents of its own.
    void check() const {
        for (const Row& row : m_rows) {
            if (!row.expectDefault) continue;
            SCOPED_TRACE(testing::PrintToString(row.key));
            checkAbsent(row);
            checkStored(row);
            if (row.setSample) checkSet(row);
        }
    }

    /// Rows and table have the same keys in the same order, defaults, initial values and direction.
    void checkTable(const detail::SettingTable& table) const {
        const std::vector<Setting> settings = detail::settingsOf(table);
        std::vector<std::wstring> keys;
        for (const Setting& setting : settings) keys.push_back(setting.key);
        std::vector<std::wstring> rowKeys;
        for (const Row& row : m_rows) rowKeys.push_back(row.catalogueKey);
        ASSERT_EQ(without(keys, rowKeys), std::vector<std::wstring>()) << "settings without a row";
        ASSERT_EQ(without(rowKeys, keys), std::vector<std::wstring>()) << "rows without a setting";
        ASSERT_EQ(rowKeys, keys);
        for (std::size_t i = 0; i < settings.size(); ++i) checkRow(m_rows[i], settings[i]);
    }

    /// initialize() writes exactly the rows with an initial text, in their order.
    void checkInitialize() const {
        ConfigInfo document;
        const std::unique_ptr<Section> section = m_make(&document);
        const std::vector<std::wstring> before = leavesOf(document);
        section->initialize();
        std::vector<std::wstring> written = leavesOf(document);
        written.erase(written.begin(), written.begin() + static_cast<std::ptrdiff_t>(before.size()));
        EXPECT_EQ(written, initialLeaves(section->getSectionName(), section->getSectionID()));
    }

private:
    struct Row {
        std::wstring key;  // as it is stored
        std::wstring catalogueKey;
        std::wstring defaultText;
        std::wstring sampleText;
        std::optional<std::wstring> initialText;
        bool readOnly = false;
        std::function<void(Section&)> expectDefault;
        std::function<void(Section&)> expectSample;
        std::function<void(Section&)> setSample;
    };

    template <typename Getter>
    Row readRow(Getter getter, const std::wstring& key, const Sample<ValueOf<Getter>>& fallback,
                const Sample<ValueOf<Getter>>& sample, std::optional<std::wstring> initialText) {
        using Value = ValueOf<Getter>;
        EXPECT_FALSE(SameValue<Value>::of(fallback.value, sample.value))
            << "sample is the default: " << testing::PrintToString(key);
        const auto expect = [getter](const Value& wanted) {
            return [getter, wanted](Section& section) {
                const Value given = std::invoke(getter, section);
                EXPECT_TRUE(SameValue<Value>::of(given, wanted))
                    << "gives " << testing::PrintToString(given) << " instead of " << testing::PrintToString(wanted);
            };
        };
        Row added;
        added.key = added.catalogueKey = key;
        added.defaultText = fallback.text;
        added.sampleText = sample.text;
        added.initialText = std::move(initialText);
        added.expectDefault = expect(fallback.value);
        added.expectSample = expect(sample.value);
        return added;
    }

    static std::vector<std::wstring> without(const std::vector<std::wstring>& keys,
                                             const std::vector<std::wstring>& others) {
        std::vector<std::wstring> rest;
        for (const std::wstring& key : keys)
            if (std::find(others.begin(), others.end(), key) == others.end()) rest.push_back(key);
        return rest;
    }

    static void checkRow(const Row& row, const Setting& setting) {
        SCOPED_TRACE(testing::PrintToString(row.key));
        EXPECT_EQ(row.defaultText, setting.defaultText);
        EXPECT_EQ(row.initialText, setting.initialText);
        EXPECT_EQ(row.readOnly, setting.readOnly);
        EXPECT_FALSE(setting.meaning.empty());
    }

    std::vector<std::wstring> initialLeaves(const std::wstring& sectionName, const std::wstring& sectionID) const {
        const std::wstring section = sectionName + (sectionID.empty() ? L"" : L"[" + sectionID + L"]") + L"|";
        std::vector<std::wstring> leaves;
        for (const Row& row : m_rows)
            if (row.initialText)
                leaves.push_back(section + row.key + L" = " + detail::withSectionID(*row.initialText, sectionID));
        return leaves;
    }

    void checkAbsent(const Row& row) const {
        ConfigInfo document;
        const std::unique_ptr<Section> section = m_make(&document);
        const std::vector<std::wstring> before = leavesOf(document);
        row.expectDefault(*section);
        EXPECT_EQ(leavesOf(document), before);
        EXPECT_FALSE(document.isDirty());

        document.setStringItem(section->getSectionName(), L"Neighbour", L"kept", section->getSectionID(), {}, {});
        row.expectDefault(*section);
    }

    /// Texts that another program stored; those of several elements are covered by checkSet.
    void checkStored(const Row& row) const {
        if (row.sampleText.rfind(L"<", 0) == 0) return;
        ConfigInfo document;
        const std::unique_ptr<Section> section = m_make(&document);
        const auto store = [&](const std::wstring& text) {
            document.setStringItem(section->getSectionName(), row.key, text, section->getSectionID(), {}, {});
        };
        store(row.sampleText);
        row.expectSample(*section);
        if (row.defaultText == L"all zeros") return;
        store(row.defaultText);
        row.expectDefault(*section);
    }

    void checkSet(const Row& row) const {
        ConfigInfo document;
        const std::unique_ptr<Section> section = m_make(&document);
        const std::wstring& name = section->getSectionName();
        const std::wstring& id = section->getSectionID();
        document.setStringItem(name, L"Neighbour", L"kept", id, {}, {});
        document.setDirty(false);
        const std::vector<std::wstring> before = leavesOf(document);

        row.setSample(*section);
        EXPECT_TRUE(document.isDirty());
        EXPECT_EQ(storedText(document, name, row.key, id), row.sampleText);
        EXPECT_EQ(leavesOutside(document, (id.empty() ? name : name + L"[" + id + L"]") + L"|" + row.key), before);
        row.expectSample(*section);
        row.expectSample(*m_make(&document));

        document.setDirty(false);
        row.setSample(*section);
        EXPECT_FALSE(document.isDirty()) << "an equal value is no change";
    }

    static std::vector<std::wstring> leavesOutside(const ConfigInfo& document, const std::wstring& path) {
        std::vector<std::wstring> kept;
        for (const std::wstring& leaf : leavesOf(document))
            if (leaf.rfind(path + L" = ", 0) != 0 && leaf.rfind(path + L"|", 0) != 0) kept.push_back(leaf);
        return kept;
    }

    Make m_make;
    std::vector<Row> m_rows;
};

}  // namespace XMLConfig::tests
