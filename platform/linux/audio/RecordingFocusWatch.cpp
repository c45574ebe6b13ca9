#include "audio/RecordingFocusWatch.h"

#include <mutex>
#include <string>

#include "audio/FocusWatches.h"
#include "audio/SoundThread.h"
#include "lib/gio/Bus.h"
#include "lib/gio/IoThread.h"

namespace audio {

namespace {

constexpr const char* kName = "org.orvane.Focus.Recording";
constexpr int kReasonMs = 250;

// Why the owner took the focus; what owners do not tell is put down to the system.
sound_stream_focus_change_reason_e reasonOf(const std::string& owner) {
    gio::Error error;
    const gio::Variant answer = gio::Bus::session().call(
        owner.c_str(), "/org/orvane/Focus", "org.freedesktop.DBus.Properties", "Get",
        g_variant_new("(ss)", "org.orvane.Focus1", "Reason"), "(v)", error, kReasonMs, G_DBUS_CALL_FLAGS_NO_AUTO_START);
    int reason = SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
    if (answer) {
        GVariant* boxed = nullptr;
        g_variant_get(answer.get(), "(v)", &boxed);
        const gio::Variant value(boxed);
        if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_INT32)) {
            reason = g_variant_get_int32(value.get());
        }
    }
    return static_cast<sound_stream_focus_change_reason_e>(reason);
}

void tell(const std::string& owner) {
    static sound_stream_focus_change_reason_e last = SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
    if (!owner.empty()) {
        last = reasonOf(owner);
    }
    FocusWatches::get().tell(SOUND_STREAM_FOCUS_FOR_RECORDING,
                             owner.empty() ? SOUND_STREAM_FOCUS_STATE_RELEASED : SOUND_STREAM_FOCUS_STATE_ACQUIRED,
                             last, "");
}

void ownerChanged(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments,
                  gpointer) noexcept {
    const char* owner = "";
    g_variant_get(arguments, "(&s&s&s)", nullptr, nullptr, &owner);
    SoundThread::get().post([text = std::string(owner)] { tell(text); });
}

}  // namespace

void watchRecordingFocus() {
    static std::once_flag once;
    std::call_once(once, [] {
        GDBusConnection* bus = gio::Bus::session().connection();
        gio::IoThread::get().run([bus] {
            if (bus) {
                g_dbus_connection_signal_subscribe(bus, "org.freedesktop.DBus", "org.freedesktop.DBus",
                                                   "NameOwnerChanged", "/org/freedesktop/DBus", kName,
                                                   G_DBUS_SIGNAL_FLAGS_NONE, ownerChanged, nullptr, nullptr);
            }
        });
        // The bus answers in order: when it has answered, it also watches.
        gio::Bus::session().hasOwner(kName);
    });
}

}  // namespace audio
