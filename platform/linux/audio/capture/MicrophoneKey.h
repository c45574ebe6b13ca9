// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "audio/SoundServer.h"
#include "dconf/Client.h"

namespace audio {

// Follows the setting of the microphone key, "db/mic_key/status". Shared by the process.
class MicrophoneKey {
public:
    class Listener {
    public:
        // Called on the IO thread or in add(), with the lock of the sound server's loop held, possibly without a
        // change.
        virtual void keyChanged(bool off) noexcept = 0;

    protected:
        ~Listener() = default;
    };

    MicrophoneKey();

    // Calls keyChanged() before it returns.
    void add(Listener& listener);
    // After this returns, the listener is not called again.
    void remove(Listener& listener);

private:
    void look();
    bool isOff() const;

    SoundServer& mServer;
    std::vector<Listener*> mListeners;  // under the loop's lock
    dconf::Client mSettings;            // last, so that no change arrives after the other members are destroyed
};

}  // namespace audio
