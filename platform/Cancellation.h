#pragma once

namespace XMLConfig::detail {

/// While one lives, a cancellation of this thread (pthread_cancel) waits: between a load's or a save's calls of the system
/// it would unwind through code that turns what it does not know into errors. Where threads cannot be cancelled it does
/// nothing. They may be nested.
class HeldCancellation {
public:
    HeldCancellation();
    ~HeldCancellation();
    HeldCancellation(const HeldCancellation&) = delete;
    HeldCancellation& operator=(const HeldCancellation&) = delete;

private:
    int m_before = 0;
};

}  // namespace XMLConfig::detail
