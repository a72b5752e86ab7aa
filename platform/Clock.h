#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace XMLConfig::detail {

/// Seconds since 1970-01-01 UTC.
std::int64_t now();
/// Only tests need this: they put their own clock here; an empty function brings the system clock back. Not synchronised.
void setClock(std::function<std::int64_t()> clock);
/// A time in UTC as "YYYY-MM-DDThh-mm-ss", fit for a file name.
std::wstring utcStamp(std::int64_t seconds);

}  // namespace XMLConfig::detail
