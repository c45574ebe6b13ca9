// SPDX-License-Identifier: Apache-2.0
#include "MicrophoneKey.h"

#include <algorithm>

#include "bus/SessionBus.h"
#include "gio/Codec.h"
#include "process/Owner.h"

namespace audio {

namespace {

constexpr const char* kPath = "/db/mic_key/status";

}  // namespace

// Checks the key after a change of any setting. This takes only a microsecond.
MicrophoneKey::MicrophoneKey()
    : mServer(process::shared<SoundServer>()),
      mSettings(bus::ioThread().context(), [this](const std::vector<std::string>&) { look(); }) {}

void MicrophoneKey::add(Listener& listener) {
    const pulse::Mainloop::Lock lock(mServer.loop());
    mListeners.push_back(&listener);
    listener.keyChanged(isOff());
}

void MicrophoneKey::remove(Listener& listener) {
    const pulse::Mainloop::Lock lock(mServer.loop());
    mListeners.erase(std::remove(mListeners.begin(), mListeners.end(), &listener), mListeners.end());
}

void MicrophoneKey::look() {
    const pulse::Mainloop::Lock lock(mServer.loop());
    const bool off = isOff();
    for (Listener* listener : mListeners) {
        listener->keyChanged(off);
    }
}

bool MicrophoneKey::isOff() const {
    const gio::Variant value = mSettings.read(kPath);
    return value && value.is<int32_t>() && value.as<int32_t>() == 0;
}

}  // namespace audio
