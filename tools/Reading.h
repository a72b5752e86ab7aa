#pragma once

#include <memory>
#include <optional>
#include <string>

#include "store/ConfigInfo.h"
#include "tools/Output.h"

/// Documents as the verbs that only read take them.
namespace tool {

/// A file that cannot be read or written, or that is no configuration: exit status 3. Of a fault in the XML it shows the
/// line, and a caret under the place.
class Unreadable : public Refusal {
public:
    using Refusal::Refusal;
};

/// The message, with why the file cannot be opened, or what is wrong with it as a whole, where that can be seen.
std::wstring withReason(const std::wstring& message, const std::string& file);
/// What is said of a file of lines that cannot be read, with the reason where that can be seen.
std::wstring unreadableLines(const std::string& file);
/// Throws Unreadable where standard input could not be read to its end, as where it is closed or a folder.
void requireWholeInput();
/// The line of the file that a message finds fault with, and a caret under the place; "" where it names none.
std::wstring faultLineIn(const std::string& file, const std::wstring& message);

/// Throws Unreadable for a document that has another root or no version.
void requireConfiguration(const ConfigInfo& document, const std::wstring& name);

/// Throws Unreadable about a document of a version that this program does not know yet.
[[noreturn]] void refuseNewer(const ConfigInfo& document, const std::wstring& name);

/// Whether somebody will ask for lines of what is read, so that the load had better note them.
enum class Lines { NotAsked, Asked };

/// The document as it stands in the file: nothing is converted, counted or stamped. Throws Unreadable.
std::unique_ptr<ConfigInfo> openDocument(const std::string& file, Lines lines = Lines::NotAsked);
/// The document in a file, or in what standard input gives for "-". One of an older release is brought up to date in memory,
/// which is said on standard error. Throws Unreadable for everything else.
std::unique_ptr<ConfigInfo> readDocument(const std::string& file, Lines lines = Lines::NotAsked);
struct ReadDocument {
    std::unique_ptr<ConfigInfo> document;
    std::optional<double> storedVersion;  ///< where it was brought up to date
};
/// The same with the version that the file has.
ReadDocument readWithVersion(const std::string& file, Lines lines);
/// A document of any release: an older one is brought up to date in memory, a newer one stays as it is, and nothing is
/// printed. Its lines will be asked for.
ReadDocument readForCheck(const std::string& file);
/// The document as it stands in the file, of whatever release up to the latest.
std::unique_ptr<ConfigInfo> readDocumentAsStored(const std::string& file);

}  // namespace tool
