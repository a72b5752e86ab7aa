#pragma once

#include <string>

#include "tests/support/TemporaryFolder.h"

/// With the separators of this system, whose temporary folder gives them to all names below it.
inline std::wstring ofThisSystem(const std::wstring& path) { return wideOf(pathOf(path).make_preferred()); }
