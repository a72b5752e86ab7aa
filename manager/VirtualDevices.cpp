#include "manager/VirtualDevices.h"

#include "platform/Environment.h"
#include "platform/Text.h"
#include "store/CorvaneException.h"

namespace XMLConfig::detail {

namespace {

void refuse(const wchar_t* variable, const wchar_t* word) {
    if (equalIgnoringCase(environmentVariable(variable).value_or(L""), word))
        throw CorvaneException(std::wstring(L"Error loadConfiguration(): virtual devices are not supported yet: ") +
                               variable + L"=" + word);
}

}  // namespace

void applyVirtualDevices(ConfigInfo&) {
    refuse(L"UL_VIRTUAL_PROJECTOR", L"config");
    refuse(L"UL_VIRTUAL_PROJECTOR", L"fake");
    refuse(L"UL_VIRTUAL_CAMERA", L"config");
}

}  // namespace XMLConfig::detail
