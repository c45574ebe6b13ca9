// SPDX-License-Identifier: Apache-2.0
#include "Reporter.h"

#include <exception>

namespace wakeup {

namespace {

void callListener(nuance::IWakeupListener& listener, const Outcome& outcome) {
    switch (outcome.kind) {
        case Outcome::Detected:
            return listener.OnWakeup(outcome.detection.wakeWord, outcome.detection.confidence);
        case Outcome::Canceled:
            return listener.OnCanceled();
        case Outcome::Failed:
            return listener.OnError(outcome.error, outcome.detail);
    }
}

}  // namespace

void Reporter::attach(Listener* listener) {
    std::lock_guard lock(mMutex);
    mListener = listener;
}

Reporter::Listener* Reporter::listener() {
    std::lock_guard lock(mMutex);
    return mListener;
}

void Reporter::warn(Listener::Warning code, const std::string& detail) {
    if (Listener* to = listener()) {
        to->OnWarning(code, detail);
    }
}

void Reporter::fail(Listener::Error code, const std::string& detail) {
    if (Listener* to = listener()) {
        to->OnError(code, detail);
    }
}

void Reporter::report(const Outcome& outcome) {
    Listener* to = listener();
    if (!to) {
        return;
    }
    try {
        callListener(*to, outcome);
    } catch (const std::exception& fault) {
        fail(Listener::ERROR_FROM_USER_CALLBACK, fault.what());
    }
}

}  // namespace wakeup
