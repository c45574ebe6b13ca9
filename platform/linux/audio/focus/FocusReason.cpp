// SPDX-License-Identifier: Apache-2.0
#include "FocusReason.h"

#include <atomic>

#include "gio/Bus.h"
#include "process/Owner.h"

namespace audio {
namespace {

constexpr const char* kPath = "/org/orvane/Focus";
constexpr const char* kDescription =
    "<node><interface name='org.orvane.Focus1'><property name='Reason' type='i' access='read'/></interface></node>";
constexpr int kAnswerMs = 250;

class ShownReason {
public:
    ShownReason() {
        gio::Bus::session().show(kPath, kDescription, [this](const char*) { return g_variant_new_int32(mReason); });
    }
    void set(int reason) { mReason = reason; }

private:
    std::atomic<int> mReason{SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM};
};

}  // namespace

void showFocusReason(int reason) {
    process::shared<ShownReason>().set(reason);
}

sound_stream_focus_change_reason_e focusReasonOf(const std::string& owner) {
    gio::Error error;
    const gio::Variant answer = gio::Bus::session().call(owner.c_str(), kPath, "org.freedesktop.DBus.Properties", "Get",
                                                         g_variant_new("(ss)", "org.orvane.Focus1", "Reason"), "(v)",
                                                         error, kAnswerMs, G_DBUS_CALL_FLAGS_NO_AUTO_START);
    int reason = -1;
    if (answer) {
        GVariant* boxed = nullptr;
        g_variant_get(answer.get(), "(v)", &boxed);
        const gio::Variant value(boxed);
        if (g_variant_is_of_type(boxed, G_VARIANT_TYPE_INT32)) {
            reason = g_variant_get_int32(boxed);
        }
    }
    const bool known =
        reason >= SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA && reason <= SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA_EXTERNAL_ONLY;
    return known ? static_cast<sound_stream_focus_change_reason_e>(reason) : SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
}

}  // namespace audio
