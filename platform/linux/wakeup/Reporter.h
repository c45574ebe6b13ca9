// SPDX-License-Identifier: Apache-2.0
// Calls the attached listener, if any. Thread-safe. Holds no lock during a call to the listener.
#pragma once

#include <mutex>
#include <string>

#include "Spotter.h"
#include "wakeup_engine.h"

namespace wakeup {

// How a listening period ended.
struct Outcome {
    enum Kind { Detected, Canceled, Failed } kind = Canceled;
    Detection detection;
    nuance::IWakeupListener::Error error = nuance::IWakeupListener::VOCON_INTERNAL_ERROR;
    std::string detail;
};

class Reporter {
public:
    using Listener = nuance::IWakeupListener;

    void attach(Listener* listener);

    void warn(Listener::Warning code, const std::string& detail);
    void fail(Listener::Error code, const std::string& detail);
    // An exception from the listener is reported as an error.
    void report(const Outcome& outcome);

private:
    Listener* listener();

    std::mutex mMutex;
    Listener* mListener = nullptr;
};

}  // namespace wakeup
