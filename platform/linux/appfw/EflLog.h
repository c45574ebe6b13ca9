// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace appfw {

// Selects the EFL errors to log. Deleting a timer that has already expired is harmless, but EFL reports three errors
// for it: one from its object system, one from the timer, and another one from its object system. Main loop only.
class EflErrors {
public:
    // Returns the lines to log after this error. Holds back an error that may be the first of the three.
    std::vector<std::string> add(const std::string& function, const std::string& text);
    // The line that was held back, unless the other two errors have followed it.
    std::optional<std::string> takeHeld();

private:
    std::optional<std::string> mHeld;
    std::string mEndedTimer;  // the object system's error text for the timer; empty: none
};

// From now on, EFL's errors go to the system log. Call on the main loop's thread after ecore_init().
void logEflErrors();

}  // namespace appfw
