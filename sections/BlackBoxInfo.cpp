#include "platform/Numbers.h"
#include "sections/SystemConfig.h"
#include "store/TextForms.h"

using XMLConfig::detail::formatInteger;
using XMLConfig::detail::textOf;

BlackBoxInfo::BlackBoxInfo(bool enabled, const std::wstring& protocol, const std::wstring& commAddress, int commPort,
                           int powerPort)
    : m_enabled(enabled), m_protocol(protocol), m_commAddress(commAddress), m_commPort(commPort), m_powerPort(powerPort) {}

BlackBoxInfo::~BlackBoxInfo() = default;

std::wstring BlackBoxInfo::toString() const {
    return L"BlackBoxInfo[ enabled='" + textOf(m_enabled) + L"';  protocol='" + m_protocol + L"';  commAddress='" +
           m_commAddress + L"';  commPort='" + formatInteger(m_commPort) + L"';  powerPort=" + formatInteger(m_powerPort) +
           L" ]";
}
