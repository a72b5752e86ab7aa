#include "store/BuildIdentity.h"

#include "platform/Text.h"

namespace XMLConfig::detail {

const std::wstring& buildNumber() {
    static const std::wstring number = fromUtf8(std::string("2") + "." + "1" + "." + "1" + "." + "14");
    return number;
}

}  // namespace XMLConfig::detail
