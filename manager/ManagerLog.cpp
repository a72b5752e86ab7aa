#include "manager/ManagerLog.h"

#include "platform/Early.h"

XMLCONFIG_EARLY const XMLConfig::detail::LoggerPtr XMLConfig::detail::managerLog =
    logger(L"Ulvano.XMLConfig.XMLConfigManager");
