// SPDX-License-Identifier: Apache-2.0
// bench_modules FILE [NAME...]: measures modules of the platform.
#include <string>

#include "modules/Measures.h"
#include "runner/Run.h"

int main(int count, char** words) {
    const std::string role = count > 1 ? words[1] : "";
    if (role == bench::kChangeSettings) {
        return bench::changeSettings();
    }
    if (role == bench::kSendBack) {
        return bench::sendBack();
    }
    return bench::runMeasures(count, words,
                              {{"settings", bench::measureSettings},
                               {"messages", bench::measureMessages},
                               {"fades", bench::measureFades},
                               {"recognition", bench::measureRecognition}});
}
