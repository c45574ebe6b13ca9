// SPDX-License-Identifier: Apache-2.0
// The light of the microphone key is the appliance's microphone LED, if it has one. On a desktop, this LED is on while
// the microphone is muted.
#include <device.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "process/Guard.h"

namespace {

namespace fs = std::filesystem;

bool write(const fs::path& file, int value) {
    std::ofstream stream(file);
    stream << value << std::flush;
    return stream.good();
}

int brightest(const fs::path& led) {
    int value = 1;
    std::ifstream(led / "max_brightness") >> value;
    return value;
}

int light(bool on) {
    const char* chosen = getenv("ORVANE_SYSFS_ROOT");
    const fs::path leds = fs::path(chosen ? chosen : "/sys") / "class" / "leds";
    std::error_code error;
    for (const fs::directory_entry& led : fs::directory_iterator(leds, error)) {
        const std::string name = led.path().filename();
        if (name.find("mic") == std::string::npos) {
            continue;
        }
        const bool lit = name.find("mute") == std::string::npos ? on : !on;
        const bool written = write(led.path() / "brightness", lit ? brightest(led.path()) : 0);
        return written ? DEVICE_ERROR_NONE : DEVICE_ERROR_OPERATION_FAILED;
    }
    return DEVICE_ERROR_NOT_SUPPORTED;
}

}  // namespace

extern "C" int device_touchkey_set_mic_led(bool on) {
    return process::guarded(DEVICE_ERROR_OPERATION_FAILED, __func__, [=] { return light(on); });
}
