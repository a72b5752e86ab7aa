#include "fuzz/FuzzFile.h"
#include "manager/Upgrade.h"
#include "store/CorvaneException.h"

namespace {

/// The document, or nothing where the file is refused.
std::unique_ptr<ConfigInfo> loaded(const std::string& bytes) {
    try {
        return std::make_unique<ConfigInfo>(fuzzFile(bytes));
    } catch (const CorvaneException&) {
        return nullptr;
    }
}

/// What was saved can be read, and is written again as it stands.
std::unique_ptr<ConfigInfo> reloaded(ConfigInfo& document) {
    const std::string saved = savedText(document);
    std::unique_ptr<ConfigInfo> again = loaded(saved);
    require(again != nullptr, "a saved file can be read");
    require(savedText(*again) == saved, "a saved file is a fixed point");
    return again;
}

XMLConfig::VersionUpgradeEnum upgraded(ConfigInfo& document) {
    try {
        return XMLConfig::upgradeDocument(document);
    } catch (const CorvaneException&) {
        return XMLConfig::UpgradeFailed;
    }
}

}  // namespace

// Load, upgrade, save, reload.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::unique_ptr<ConfigInfo> document = loaded(std::string(reinterpret_cast<const char*>(bytes), size));
    if (!document) return 0;
    reloaded(*document);
    if (upgraded(*document) != XMLConfig::Upgraded) return 0;
    const std::unique_ptr<ConfigInfo> again = reloaded(*document);
    require(upgraded(*again) == XMLConfig::NoUpgradeRequired, "an upgraded file needs no upgrade");
    return 0;
}
