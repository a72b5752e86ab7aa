#include "fuzz/FuzzFile.h"
#include "manager/Upgrade.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"

// An upgraded document is at the latest version, can be saved and read, and needs no other upgrade.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::wstring path = fuzzFile(bytes, size);
    try {
        ConfigInfo document(path);
        if (XMLConfig::upgradeDocument(document) != XMLConfig::Upgraded) return 0;
        document.save(path);
    } catch (const CorvaneException&) {
        return 0;
    }
    ConfigInfo again(path);
    require(XMLConfig::upgradeDocument(again) == XMLConfig::NoUpgradeRequired, "an upgraded file needs no upgrade");
    return 0;
}
