// SPDX-License-Identifier: Apache-2.0
// Writes the recorder's level to the volume file, for the UI's level meter.
#include <string.h>

#include "Controller/SRecorder.h"
#include "Service.h"
#include "Util/Constants.h"
#include "Util/FileHelper.h"
#include "VolumeLevel.h"

namespace OrvaneDA {

namespace {

constexpr double VOLUME_PERIOD_S = 0.02;

}  // namespace

void Service::startTimerVolumeSender() {
    if (mVolumeTimer != nullptr) {
        return;
    }
    mVolumeTimer = ecore_timer_add(
        VOLUME_PERIOD_S,
        [](void* service) noexcept -> Eina_Bool {
            static_cast<Service*>(service)->refreshVolumeFile();
            return ECORE_CALLBACK_RENEW;
        },
        this);
}

void Service::stopTimerVolumeSender() {
    if (mVolumeTimer != nullptr) {
        ecore_timer_del(mVolumeTimer);
    }
    mVolumeTimer = nullptr;
}

void Service::refreshVolumeFile() {
    const SRecorder* recorder = mModules->recorder.get();
    if (recorder == nullptr) {
        return;
    }
    const int level = wholeLevel(recorder->getVolume());
    if (level == sLastWrittenLevel) {
        return;
    }
    sLastWrittenLevel = level;
    char bytes[sizeof level];
    memcpy(bytes, &level, sizeof level);
    Util::FileContent file(Constants::File::VOLUME);
    file.setCopiedData(bytes, sizeof bytes);
    Util::FileHelper::write(file);
}

}  // namespace OrvaneDA
