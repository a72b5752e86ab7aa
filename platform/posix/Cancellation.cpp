#include "platform/Cancellation.h"

#include <pthread.h>

namespace XMLConfig::detail {

HeldCancellation::HeldCancellation() { ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &m_before); }

HeldCancellation::~HeldCancellation() { ::pthread_setcancelstate(m_before, nullptr); }

}  // namespace XMLConfig::detail
