// The focus of sound streams: ownership of a well-known D-Bus name. The bus speaks on gio::IoThread; every callback of
// a stream runs on SoundThread. Streams of this process share one connection, so they queue here, the newest in front.
#pragma once

#include <gio/gio.h>

#include <mutex>
#include <string>
#include <vector>

#include "lib/gio/GPointer.h"
#include "sound_manager.h"

namespace audio {

class Focus {
public:
    explicit Focus(sound_stream_focus_mask_e mask);

    // Block for the bus's answer; SOUND_MANAGER_ERROR_INTERNAL without a bus.
    int acquire(sound_stream_info_h stream);
    int release(sound_stream_info_h stream);
    // As release, but says nothing when the stream neither holds nor awaits the focus.
    void forget(sound_stream_info_h stream);
    bool holds(sound_stream_info_h stream) const;

private:
    bool connect();
    unsigned request();
    bool has(sound_stream_info_h stream) const;
    void leaveBus();
    void ownerChanged(bool mine);
    void tell(sound_stream_info_h stream, sound_stream_focus_state_e state, int reason);
    int ownersReason() const;

    static void signalled(GDBusConnection*, const char*, const char*, const char*, const char* signal,
                          GVariant* parameters, void* self) noexcept;

    const sound_stream_focus_mask_e mMask;
    const std::string mName;
    std::mutex mRequests;  // one request at a time; taken before mMutex
    mutable std::mutex mMutex;
    gio::Object<GDBusConnection> mBus;
    std::vector<sound_stream_info_h> mStreams;  // the last one has the focus, if this process has
    bool mMine = false;
};

Focus& focusFor(sound_stream_focus_mask_e mask);

}  // namespace audio
