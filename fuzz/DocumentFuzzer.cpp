#include "fuzz/FuzzFile.h"
#include "store/ConfigInfo.h"
#include "store/CorvaneException.h"

// A file is refused or loaded; what was loaded and saved is a fixed point.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::wstring path = fuzzFile(bytes, size);
    try {
        ConfigInfo(path).save(path);
    } catch (const CorvaneException&) {
        return 0;
    }
    const std::string saved = XMLConfig::detail::readWholeFile(path);
    ConfigInfo(path).save(path);
    require(XMLConfig::detail::readWholeFile(path) == saved, "a saved file is a fixed point");
    return 0;
}
