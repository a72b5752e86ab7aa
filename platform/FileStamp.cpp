#include "platform/FileStamp.h"

#include <tuple>

namespace XMLConfig::detail {
namespace {

auto parts(const FileStamp& stamp) {
    return std::tie(stamp.device, stamp.number, stamp.size, stamp.timeWritten, stamp.timeChanged);
}

}  // namespace

bool isSurelyUnchanged(const FileStamp& before, const FileStamp& now) {
    return before.isSettled && parts(before) == parts(now);
}

}  // namespace XMLConfig::detail
