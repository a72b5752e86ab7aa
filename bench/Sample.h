#pragma once

#include <string>
#include <vector>

/// The documents that are measured: projector sections of 45 items and half as many camera sections of 25.
namespace bench {

enum class Kind { Text, Integer, Real, Point };

struct SampleItem {
    const char* section;
    const char* key;  ///< one part, or three joined by "|"
    Kind kind;
    const char* text;   ///< what the file holds
    const char* other;  ///< what is stored in its place when storing is measured
};

/// One item of a document. The texts are kept once for all addresses, as a program's own are: names and keys are its
/// constants, an identifier belongs to its accessor.
struct Address {
    const std::wstring& section;
    const std::wstring& id;
    const std::wstring& key;
    const SampleItem& item;
    [[nodiscard]] bool isDeep() const;
};

/// How many projectors the measured documents have.
std::vector<int> sizes();
/// Every item of a document, in document order.
std::vector<Address> addressesOf(int projectors);
/// The file of such a document; written when it is first asked for, to memory where the machine has a folder for that.
std::string sampleFile(int projectors);
/// The folder of these files.
std::string sampleFolder();
/// A file in the same folder to save to.
std::string scratchFile();
/// Removes the folder.
void removeSamples();

std::wstring widened(const std::string& ascii);

}  // namespace bench
