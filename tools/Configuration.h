#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/IQuorvelProductInfo.h"
#include "store/ConfigInfo.h"

/// Files as the verbs take them.
namespace tool {

/// The tool as a product: its configurations end in ".skorrax".
class ProductInfo : public IQuorvelProductInfo {
public:
    std::string getConfigFileExtension() const override { return ".skorrax"; }
};

bool isOfLatestVersion(const ConfigInfo& document);
/// Throws a Refusal unless the document is of the version that this library writes.
void requireLatestVersion(const ConfigInfo& document, const std::string& file);
/// Brings the build stamps up to date and writes the document back to its file. Refuses where another program has changed
/// the file since it was read. No signal ends the program meanwhile.
void saveDocument(ConfigInfo& document, const std::string& file);

/// Whether anything of that name exists.
bool exists(const std::string& file);
/// Names with "*" or "?" replaced by the files they stand for, where the system's shell leaves that to programs. Where
/// nothing fits, the name stays.
std::vector<std::string> withPatternsExpanded(const std::vector<std::string>& names);

/// Whether that name leads to a pipe or a device, into which the text goes straight.
bool isDevice(const std::string& file);

}  // namespace tool
