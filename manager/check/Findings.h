#pragma once

#include <deque>
#include <optional>
#include <set>
#include <unordered_map>

#include "manager/Check.h"
#include "manager/CheckRules.h"
#include "manager/Layout.h"
#include "manager/check/CheckedDocument.h"
#include "manager/check/OwnComments.h"
#include "manager/check/Texts.h"

/// What all rules work with.
namespace XMLConfig::detail {

/// Where something stands, or would stand.
struct Place {
    ElementView element;   ///< what is around it where it is not stored
    std::wstring address;  ///< of the place itself
    std::wstring device;
};

/// A document under check and what has been found in it.
class Findings {
public:
    Findings(const ConfigInfo& document, const CheckOptions& options);

    const ConfigInfo& document;
    const CheckOptions& options;
    const CheckedDocument read;
    const ShownUnits units;
    const std::vector<CommentView> comments;

    /// Whether any rule is asked for whose ID begins so.
    [[nodiscard]] bool wants(std::wstring_view beginning) const;
    /// Whether anything was found by that rule.
    [[nodiscard]] bool holds(std::wstring_view rule) const;
    /// The new finding, to be completed; good until the next one is added.
    Finding& add(const wchar_t* rule, Severity severity, Place place, std::wstring message);
    /// Marks what comments accept, and finds those that accept what is not there.
    void accept();
    std::vector<Finding> inOrder();

private:
    const CheckRule& ruleOf(const wchar_t* id);
    void addGone(const Acceptance& acceptance);
    void lookAlsoFor(const std::wstring& rule);
    /// Whether the document was looked at by that rule as a whole.
    [[nodiscard]] bool isJudged(const std::wstring& rule, bool leavesNeighboursOut) const;

    std::vector<Acceptance> m_acceptances;
    std::vector<std::wstring> m_lookedFor;  // the rules; all where empty

    std::unordered_map<const wchar_t*, const CheckRule*> m_rules;  // by the IDs as the sources write them
    std::deque<Finding> m_findings;  // of which there may be very many: no vector, which would have them twice to grow
    Finding m_unwanted;
};

[[nodiscard]] Place placeOf(const CheckedSection& section);
[[nodiscard]] Place placeOf(const CheckedSection& section, const CheckedItem& item);
/// The place of a key, whether anything is stored there or not.
[[nodiscard]] Place placeOf(const CheckedSection& section, std::wstring_view key);
/// The place of a key in the first section of that name.
[[nodiscard]] Place placeOf(const Findings& findings, std::wstring_view tag, std::wstring_view key);
/// With the text that stands there.
[[nodiscard]] FindingPlace otherPlace(Place place);
[[nodiscard]] FindingPlace otherPlace(Place place, const std::wstring& text);

/// The command that stores a text.
[[nodiscard]] std::vector<std::wstring> setCommand(const Place& place, const std::wstring& text);
[[nodiscard]] std::vector<std::wstring> unsetCommand(const Place& place);
/// What mends a finding by one command, which is moved there: a list of commands would copy it.
[[nodiscard]] Mend mendBy(MendSafety safety, std::vector<std::wstring> command);

// The rules, a source file a group.

void checkForm(Findings& findings);
void checkIdentity(Findings& findings);
void checkCameraReferences(Findings& findings);  ///< of the group of checkIdentity, which calls it
void checkChannels(Findings& findings);
void checkPicture(Findings& findings);
void checkScreen(Findings& findings);
void checkCameras(Findings& findings);
void checkNetwork(Findings& findings);
void checkEffect(Findings& findings);
void checkConflicts(Findings& findings);

}  // namespace XMLConfig::detail
