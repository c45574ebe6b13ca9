// SPDX-License-Identifier: Apache-2.0
#include "UiRequests.h"

#include "Util/Constants.h"

namespace OrvaneDA {

UiRequests& UiRequests::get() {
    static UiRequests requests;
    return requests;
}

void UiRequests::prepare() {
    namespace Operation = Constants::Operation;
    triggerShot.setPackageName(Constants::App::UI).setOperation(Operation::TRIGGER_SHOT_VOICE);
    stateChange.setPackageName(Constants::App::UI).setOperation(Operation::STATE_CHANGE);
    partialResult.setPackageName(Constants::App::UI).setOperation(Operation::PARTIAL_RESULT);
    speechDetected.setPackageName(Constants::App::UI).setOperation(Operation::SPEECH_DETECTED);
}

}  // namespace OrvaneDA
