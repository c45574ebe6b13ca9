// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace appfw {

// Selects the errors of EFL that the log shows. Deleting a timer that has already expired is harmless, but EFL logs
// three errors about it: one of its object system, one of the timer, and one more of its object system. Main loop only.
class EflErrors {
public:
    // The lines to log after this error. Holds an error back that may be the first of the three.
    std::vector<std::string> add(const std::string& function, const std::string& text);
    // The line that was held back, if the two others have not followed it.
    std::optional<std::string> takeHeld();

private:
    std::optional<std::string> mHeld;
    std::string mEndedTimer;  // what the object system says about it; empty: none
};

// From now on, EFL's errors go to the system log. Call on the main loop's thread after ecore_init().
void logEflErrors();

}  // namespace appfw
