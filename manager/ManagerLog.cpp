#include "manager/ManagerLog.h"

const XMLConfig::detail::LoggerPtr XMLConfig::detail::managerLog = logger(L"Ulvano.XMLConfig.XMLConfigManager");
