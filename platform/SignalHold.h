#pragma once

#include <memory>

#include "platform/Export.h"

namespace XMLConfig {

/// While it lives, what would end the program from outside waits: SIGINT, SIGTERM and SIGHUP for this thread, on Windows
/// Ctrl+C, Ctrl+Break and the closing of the console. A signal that has come meanwhile does its work when the hold ends, so
/// that a program of one thread that holds while it saves is never ended with half of it done. Holds may be nested.
class XMLCONFIG_API SignalHold {
public:
    SignalHold();
    ~SignalHold();
    SignalHold(const SignalHold&) = delete;
    SignalHold& operator=(const SignalHold&) = delete;

private:
    struct EarlierHandling;
    std::unique_ptr<EarlierHandling> m_before;
};

}  // namespace XMLConfig
