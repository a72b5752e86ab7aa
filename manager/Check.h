#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "store/ElementView.h"

class ConfigInfo;

namespace XMLConfig {

/// How bad a finding is.
enum class Severity {
    Error,    ///< a run cannot be right, or the application reads something else than the file seems to say
    Warning,  ///< probably wrong
    Note      ///< worth knowing
};

/// The severity's name: "error", "warning" or "note".
XMLCONFIG_API const wchar_t* nameOf(Severity severity);

/// Whether a program may mend a finding by itself.
enum class MendSafety {
    None,  ///< no: only the user knows what would mend it
    Safe,  ///< yes: what the application reads stays the same, or was broken for sure
    Asked  ///< only where the user has asked for it
};

/// The safety's name: "none", "safe" or "asked".
XMLCONFIG_API const wchar_t* nameOf(MendSafety safety);

/// What would mend a finding.
struct Mend {
    MendSafety safety = MendSafety::None;
    /// Arguments of the command-line tool, the verb first; L"FILE" stands for the document's file.
    std::vector<std::vector<std::wstring>> commands;
};

/// Another place that belongs to a finding.
struct FindingPlace {
    ElementView element;   ///< borrows the document
    std::wstring address;  ///< as parseAddress takes it
    /// What stands there, as it is stored; nothing where no value is stored, as for a device.
    std::optional<std::wstring> text;
};

/// Something in a document that deserves a look. No finding stops the library, which reads the document all the same.
struct Finding {
    std::wstring rule;  ///< "XC103"; `checkRules` tells what it means
    std::wstring name;  ///< "wrong-type"
    Severity severity = Severity::Warning;
    /// The element that the finding is about; where the document does not store it, the element that would be around it; a
    /// view of no element for the document as a whole. Borrows the document: use it no more when that has changed or ended.
    ElementView element;
    std::wstring address;  ///< as parseAddress takes it; of a device without ID the section's name; "" for the document
    std::wstring device;   ///< the name of the device whose setting it is, or its ID; "" for others
    std::wstring message;  ///< one line without the address
    std::vector<FindingPlace> places;
    Mend mend;
    bool isAccepted = false;  ///< whether a comment accepts it
};

/// Which rules check a document, and what they look at besides the document.
struct CheckOptions {
    std::vector<std::wstring> onlyRules;  ///< "XC103", ...; all where empty
    std::wstring file;                    ///< the document's file; "" where it has none: then no file name is looked at
    bool looksForFiles = true;            ///< whether to look on the disk for the files that the document names
    std::optional<double> storedVersion;  ///< the version in the file, where the document was upgraded in memory
    bool givesAccepted = false;           ///< whether findings that a comment accepts are told too
};

/// Checks a document of the latest version, which stays as it is, and gives what it finds: errors first, then warnings, then
/// notes; within these by rule, and of each rule in document order. A document of a newer version gives one finding, which
/// says so. Values that cannot be read are findings or count as missing; nothing is thrown for them. No setting is called
/// unknown in a section whose keys the callers choose. A comment "xmlconfig accepts XC321: why" accepts what that rule finds
/// in the element in which it stands. Messages give angles in the document's unit. Takes time in proportion to the document.
XMLCONFIG_API std::vector<Finding> check(const ConfigInfo& document, const CheckOptions& options);
/// Checks a document by every rule, as one that has no file: the files that it names are not looked for.
XMLCONFIG_API std::vector<Finding> check(const ConfigInfo& document);
/// The text of the comment that accepts what a rule finds: "xmlconfig accepts XC321: why".
XMLCONFIG_API std::wstring acceptanceText(const std::wstring& rule, const std::wstring& reason);

}  // namespace XMLConfig
