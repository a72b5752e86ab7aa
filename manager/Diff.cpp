#include "manager/Diff.h"

#include <algorithm>
#include <map>

#include "manager/Origin.h"
#include "manager/SettingSearch.h"
#include "manager/SpecialForms.h"
#include "manager/diff/CommentCount.h"
#include "manager/diff/DeviceMatches.h"
#include "manager/diff/DocumentSections.h"
#include "manager/diff/SectionTexts.h"
#include "manager/diff/ValueComparison.h"
#include "platform/Words.h"
#include "store/BuildIdentity.h"
#include "store/Tokens.h"

namespace XMLConfig {
namespace {

using detail::Device;
using detail::DeviceMatch;
using detail::DocumentSections;
using detail::endsWith;
using detail::SectionTexts;

std::wstring nameOf(const ElementView& device) { return device.child(L"Name").text(); }

std::wstring shownName(const ElementView& device) {
    const std::wstring name = nameOf(device);
    return name.empty() ? device.id() : name;
}

std::vector<std::wstring> namesIn(const ConfigInfo& document, const std::wstring& tag) {
    std::vector<std::wstring> names;
    for (const ElementView& device : sectionElements(document, tag)) names.push_back(shownName(device));
    return names;
}

/// Whether a text differs because its device was renamed, and for no other reason.
bool belongsToRenaming(const StoredText& text) {
    if (!text.inSnippet) return text.path == L"OldSectionID";
    return endsWith(text.path, L"@UID") || endsWith(text.path, L"/macAddress");
}

/// The other key of a point that two cameras share, of those that `others` holds; the two may be named in either order.
const StoredText* findSwapped(const SectionTexts& others, const StoredText& point) {
    constexpr std::size_t longest = 1000;  // no two IDs of cameras are longer, and each "_" may be what parts them
    const std::size_t start = point.path.find(L'_') + 1;
    const std::wstring pair = point.path.substr(start);
    if (pair.size() > longest) return nullptr;
    for (std::size_t i = pair.find(L'_'); i != std::wstring::npos; i = pair.find(L'_', i + 1)) {
        const std::wstring swapped = pair.substr(i + 1) + L"_" + pair.substr(0, i);
        if (const StoredText* const found = others.find(point.path.substr(0, start) + swapped)) return found;
    }
    return nullptr;
}

/// The text of a point under the other order of its cameras: the channels that show it to each change places.
std::wstring withSwappedChannels(const std::wstring& point) {
    std::vector<std::wstring> tokens = detail::tokensOf(point);
    if (tokens.size() == 5) std::swap(tokens[3], tokens[4]);
    std::wstring text;
    for (const std::wstring& token : tokens) text += (text.empty() ? L"" : L", ") + token;
    return text;
}

class Comparison {
public:
    Comparison(const ConfigInfo& oldDocument, const ConfigInfo& newDocument, const DiffOptions& options)
        : m_old(oldDocument),
          m_new(newDocument),
          m_oldSections(oldDocument),
          m_newSections(newDocument),
          m_options(options) {}

    Difference run() {
        std::vector<std::pair<std::wstring, std::vector<DeviceMatch>>> devices;
        for (const std::wstring& tag : sectionNames())
            if (isDeviceSection(tag))
                devices.emplace_back(tag, matchDevices(m_oldSections.devices(tag), m_newSections.devices(tag), tag));
        for (const auto& [tag, matches] : devices) noteRenames(tag, matches);
        for (const auto& [tag, matches] : devices) compareDevices(tag, matches);
        compareSections();
        for (const auto& [tag, matches] : devices) compareOrder(tag, matches);
        countComments({rootElement(m_old), rootElement(m_new)});
        return std::move(m_found);
    }

private:
    /// A section of both documents that is compared.
    struct Pair {
        ElementView old;
        ElementView now;
        bool isRenamed = false;
    };

    void noteRenames(const std::wstring& tag, const std::vector<DeviceMatch>& matches) {
        for (const DeviceMatch& match : matches) {
            if (!match.isRenamed()) continue;
            m_found.renamed.push_back({tag, nameOf(match.now->section), match.old->id, match.now->id, match.by});
            if (tag == L"Camera") m_newCameraIDs[match.old->id] = match.now->id;
        }
    }

    void compareDevices(const std::wstring& tag, const std::vector<DeviceMatch>& matches) {
        for (const DeviceMatch& match : matches) {
            if (match.isInBoth()) {
                compare({match.old->section, match.now->section, match.isRenamed()});
            } else {
                const auto& [section, id] = match.now != nullptr ? *match.now : *match.old;
                const std::size_t settings = SectionTexts(section).all().size();
                (match.now != nullptr ? m_found.added : m_found.removed).push_back({tag, id, nameOf(section), settings});
            }
        }
    }

    /// Every section that stands for no device, and the header.
    void compareSections() {
        std::map<std::pair<std::wstring, std::wstring>, Pair> pairs;
        std::vector<Pair*> inOrder;
        const auto add = [&](const DocumentSections& sections, ElementView Pair::*side) {
            for (const ElementView& section : sections.others()) {
                const auto [place, isFirst] = pairs.try_emplace({section.name(), section.id()});
                if (isFirst) inOrder.push_back(&place->second);
                if (!(place->second.*side)) place->second.*side = section;
            }
        };
        add(m_newSections, &Pair::now);
        add(m_oldSections, &Pair::old);
        for (const Pair* const pair : inOrder) {
            if (isHeaderElement((pair->now ? pair->now : pair->old).name())) compareHeader(*pair);
            else compare(*pair);
        }
    }

    void compareHeader(const Pair& pair) {
        const std::wstring name = (pair.now ? pair.now : pair.old).name();
        SettingDifference difference{name, {name, L"", L"", L"", L""}, L"", {}, {}, L"", false};
        if (pair.old) difference.old = pair.old.text();
        if (pair.now) difference.now = pair.now.text();
        if (difference.old == difference.now) return;
        const bool isStamp = name == detail::buildDateElement || name == detail::buildNumberElement;
        (isStamp ? m_found.runs : m_found.changed).push_back(difference);
    }

    void countComments(const Pair& pair) {
        m_found.comments += detail::countChangedComments(m_oldSections.comments(pair.old), m_newSections.comments(pair.now));
    }

    void compare(const Pair& pair) {
        countComments(pair);
        if (pair.old && pair.now && haveEqualContents(pair.old, pair.now)) return;
        const SectionTexts olds(pair.old);
        const SectionTexts news(pair.now);
        for (const StoredText& now : news.all()) compareTexts(pair, findSame(now, news, olds), &now);
        for (const StoredText& old : olds.all())
            if (findSame(old, olds, news) == nullptr) compareTexts(pair, &old, nullptr);
    }

    /// The text of the other section that stands for the same as one of `own`; null where there is none.
    static const StoredText* findSame(const StoredText& text, const SectionTexts& own, const SectionTexts& others) {
        const bool isOverlapPoint = text.setting != nullptr && text.setting->type == SettingType::OverlapPoint;
        const StoredText* const other = others.find(text.path);
        if (other != nullptr || !isOverlapPoint) return other;
        const StoredText* const swapped = findSwapped(others, text);
        return swapped == nullptr || own.find(swapped->path) != nullptr ? nullptr : swapped;
    }

    /// Compares a text with its older form. One of the two may be null: the text is new, or gone.
    void compareTexts(const Pair& pair, const StoredText* old, const StoredText* now) {
        const StoredText& any = now != nullptr ? *now : *old;
        if (pair.isRenamed && belongsToRenaming(any)) return;
        if (old != nullptr && now != nullptr && old->text == now->text && old->path == now->path) return;
        SettingDifference difference = describe(pair, any);
        if (old != nullptr) difference.old = old->text;
        if (now != nullptr) difference.now = now->text;
        listFor(pair, difference, old, now).push_back(difference);
    }

    SettingDifference describe(const Pair& pair, const StoredText& text) const {
        SettingDifference difference;
        difference.place = text.place;
        if (pair.now) difference.place.sectionID = pair.now.id();
        const Address section{difference.place.section, difference.place.sectionID, L"", L"", L""};
        difference.address = addressText(section) + L"/" + text.path;
        if (pair.now && isDeviceSection(difference.place.section)) difference.device = nameOf(pair.now);
        difference.inSnippet = text.inSnippet;
        return difference;
    }

    std::vector<SettingDifference>& listFor(const Pair& pair, SettingDifference& difference, const StoredText* old,
                                            const StoredText* now) {
        const Setting* const setting = (now != nullptr ? now : old)->setting;
        const bool isOfRuns = setting == nullptr ? difference.place.section == L"SiteAnalytics" : setting->writtenByRuns;
        if (isOfRuns) return m_found.runs;
        if (old == nullptr || now == nullptr)
            return isWithoutEffect(pair, difference, old, now) ? m_found.sameInEffect : m_found.changed;
        const bool isOne = areSame(*old, *now) || areReadAlike(*old, *now);
        return isOne ? m_found.sameInValue : m_found.changed;
    }

    /// Whether the document without the text reads the same all the same; notes why.
    bool isWithoutEffect(const Pair& pair, SettingDifference& difference, const StoredText* old,
                         const StoredText* now) const {
        const StoredText& text = now != nullptr ? *now : *old;
        if (text.setting == nullptr) return false;
        const Address oldPlace = old != nullptr ? old->place : placeInOld(pair, *now);
        const Address newPlace = now != nullptr ? now->place : difference.place;
        const std::optional<EffectiveValue> before = effectiveValue(m_old, oldPlace);
        const std::optional<EffectiveValue> after = effectiveValue(m_new, newPlace);
        if (!before || !after || !areOne(before->text, after->text, *text.setting)) return false;
        difference.why = XMLConfig::nameOf((old == nullptr ? before : after)->origin);
        return true;
    }

    /// Whether the application reads one value of two texts, because it takes a word or number for another, or the default
    /// for what it cannot read.
    bool areReadAlike(const StoredText& old, const StoredText& now) const {
        if (now.setting == nullptr) return false;
        const std::optional<std::wstring> before = readOtherwise(m_old, old);
        const std::optional<std::wstring> after = readOtherwise(m_new, now);
        return (before || after) && areOne(before.value_or(old.text), after.value_or(now.text), *now.setting);
    }

    /// Whether the application reads the text of a device as any text of its type, whatever else the document holds. To ask
    /// the document itself would first make it number all its sections.
    static bool isReadByItsTypeAlone(const StoredText& stored) {
        const auto& [section, id, subSection, subSectionID, key] = stored.place;
        const bool isOfDevice = isDeviceSection(section) && !id.empty() && subSection.empty();
        if (!isOfDevice || stored.element.parent().child(key) != stored.element) return false;
        const std::optional<std::wstring> read = textAsRead(stored.text, *stored.setting);
        return read && read == textAsRead(stored.text, stored.setting->type);
    }

    /// What the application reads where that is more than the stored text in another form.
    static std::optional<std::wstring> readOtherwise(const ConfigInfo& document, const StoredText& stored) {
        if (detail::specialFormAsRead(stored.text, stored.setting->type) || isReadByItsTypeAlone(stored))
            return std::nullopt;
        const std::optional<EffectiveValue> value = effectiveValue(document, stored.place);
        const bool isOfAnother = value && value->element && value->element != stored.element;
        const bool isInOtherForm = value && value->text == textAsRead(stored.text, stored.setting->type);
        return !value || isOfAnother || isInOtherForm ? std::nullopt : std::optional<std::wstring>(value->text);
    }

    [[nodiscard]] bool areOne(const std::wstring& one, const std::wstring& other, const Setting& setting) const {
        return detail::areOneValue(one, other, setting.type, m_options.tolerance);
    }

    /// The address in the old document of what has this address in the new one: renamed devices get their old ID.
    static Address placeInOld(const Pair& pair, const StoredText& now) {
        Address place = now.place;
        if (pair.old) place.sectionID = pair.old.id();
        return place;
    }

    bool areSame(const StoredText& old, const StoredText& now) const {
        if (now.setting == nullptr) return false;
        if (now.setting != nullptr && namesCameras(*now.setting))
            return newCameraIDs(old.text) == detail::tokensOf(now.text);
        const std::wstring oldText = old.path == now.path ? old.text : withSwappedChannels(old.text);
        return oldText == now.text || detail::areOneValue(oldText, now.text, now.setting->type, m_options.tolerance);
    }

    std::vector<std::wstring> newCameraIDs(const std::wstring& oldIDs) const {
        std::vector<std::wstring> ids = detail::tokensOf(oldIDs);
        for (std::wstring& id : ids) {
            const auto renamed = m_newCameraIDs.find(id);
            if (renamed != m_newCameraIDs.end()) id = renamed->second;
        }
        return ids;
    }

    /// Notes where the devices that both documents have follow one another in different orders.
    void compareOrder(const std::wstring& tag, const std::vector<DeviceMatch>& matches) {
        std::vector<const Device*> olds;
        for (const DeviceMatch& match : matches)
            if (match.isInBoth()) olds.push_back(match.old);
        if (!std::is_sorted(olds.begin(), olds.end()))
            m_found.order.push_back({tag, namesIn(m_old, tag), namesIn(m_new, tag)});
    }

    const ConfigInfo& m_old;
    const ConfigInfo& m_new;
    const DocumentSections m_oldSections;
    const DocumentSections m_newSections;
    const DiffOptions& m_options;
    std::map<std::wstring, std::wstring> m_newCameraIDs;  // by old ID
    Difference m_found;
};

}  // namespace

Difference diff(const ConfigInfo& oldDocument, const ConfigInfo& newDocument, const DiffOptions& options) {
    return Comparison(oldDocument, newDocument, options).run();
}

}  // namespace XMLConfig
