#include "platform/FileLock.h"

#include <algorithm>
#include <random>
#include <thread>

#include "platform/Cancellation.h"

namespace XMLConfig::detail {
namespace {

using std::chrono::milliseconds;

/// Programs that wait must not all ask at the same moments.
milliseconds around(milliseconds pause) {
    const HeldCancellation held;  // only the pause itself may end early
    thread_local std::minstd_rand random{std::random_device{}()};
    return milliseconds(std::uniform_int_distribution<milliseconds::rep>(1, 2 * pause.count())(random));
}

}  // namespace

bool FileLock::take(milliseconds patience) {
    using Clock = std::chrono::steady_clock;
    constexpr milliseconds longestPause{25};
    constexpr milliseconds longestPatience = std::chrono::hours(24 * 365);  // the clock can add that much
    const Clock::time_point end = Clock::now() + std::min(patience, longestPatience);
    for (milliseconds pause{1};; pause = std::min(2 * pause, longestPause)) {
        if (tryTake()) return true;
        const Clock::duration left = end - Clock::now();
        if (left <= Clock::duration::zero()) return false;
        std::this_thread::sleep_for(std::min<Clock::duration>(around(pause), left));
    }
}

}  // namespace XMLConfig::detail
