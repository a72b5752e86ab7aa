#pragma once

namespace XMLConfig::detail {

/// While such an object lives, a cancellation of this thread (pthread_cancel) waits. In the middle of a load or a save the
/// cancellation would unwind the thread through code that turns every exception that it does not know into an error. Where
/// threads cannot be cancelled the object does nothing. Such objects may be nested.
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
