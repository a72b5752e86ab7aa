#include "manager/diff/CommentCount.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/Words.h"
#include "store/ElementView.h"

namespace XMLConfig::detail {
namespace {

/// A section by its tag and the ID that the new document knows it by; both empty for what stands in none.
using Place = std::pair<std::wstring, std::wstring>;
/// How often a text stands there in the new document, less how often it does in the old one.
using Balance = std::map<std::wstring, int>;

Place placeOf(const CommentView& comment) {
    ElementView section = comment.around;
    while (section.parent() && section.parent().parent()) section = section.parent();
    return section.parent() ? Place{section.name(), section.id()} : Place();
}

class CommentComparison {
public:
    explicit CommentComparison(const Difference& difference) {
        for (const RenamedDevice& device : difference.renamed)
            m_newPlaces[{device.section, device.oldID}] = {device.section, device.newID};
        for (const auto* const devices : {&difference.added, &difference.removed})
            for (const LoneDevice& device : *devices) m_lone.insert({device.section, device.id});
    }

    void addNew(const ConfigInfo& document) {
        for (const CommentView& comment : commentsOf(document)) add(placeOf(comment), comment, 1);
    }
    void addOld(const ConfigInfo& document) {
        for (const CommentView& comment : commentsOf(document)) {
            const Place place = placeOf(comment);
            const auto moved = m_newPlaces.find(place);
            add(moved == m_newPlaces.end() ? place : moved->second, comment, -1);
        }
    }

    [[nodiscard]] std::size_t count() const {
        std::size_t count = 0;
        for (const auto& [place, texts] : m_balances)
            if (m_lone.count(place) == 0) count += changesOf(texts);
        return count;
    }

private:
    void add(const Place& place, const CommentView& comment, int sign) {
        m_balances[place][withoutOuterBlanks(comment.text)] += sign;
    }

    static std::size_t changesOf(const Balance& texts) {
        int added = 0;
        int gone = 0;
        for (const auto& [text, balance] : texts) (balance > 0 ? added : gone) += balance;
        return static_cast<std::size_t>(std::max(added, -gone));
    }

    std::map<Place, Place> m_newPlaces;  // of renamed devices, by the old ones
    std::set<Place> m_lone;              // devices of one document only
    std::map<Place, Balance> m_balances;
};

}  // namespace

std::size_t countChangedComments(const ConfigInfo& oldDocument, const ConfigInfo& newDocument,
                                 const Difference& difference) {
    CommentComparison comparison(difference);
    comparison.addNew(newDocument);
    comparison.addOld(oldDocument);
    return comparison.count();
}

}  // namespace XMLConfig::detail
