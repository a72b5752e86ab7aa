#include "platform/Cancellation.h"

namespace XMLConfig::detail {

// A thread that TerminateThread ends is never unwound; nothing helps it.
HeldCancellation::HeldCancellation() { static_cast<void>(m_before); }

HeldCancellation::~HeldCancellation() = default;

}  // namespace XMLConfig::detail
