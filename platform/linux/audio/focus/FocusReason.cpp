// SPDX-License-Identifier: Apache-2.0
#include "FocusReason.h"

#include <atomic>
#include <optional>
#include <stdexcept>

#include "bus/SessionBus.h"
#include "dbus/Interfaces.h"
#include "process/Owner.h"

namespace audio {
namespace {

constexpr const char* kPath = "/org/orvane/Focus";
constexpr const char* kInterface = "org.orvane.Focus1";
constexpr int kAnswerMs = 250;

class ShownReason {
public:
    ShownReason()
        : mExport(bus::session().exportObject(kPath, dbus::interface(kInterface), nullptr, [this](const std::string&) {
              return gio::Variant::of(mReason.load());
          })) {}
    void set(int reason) { mReason = reason; }

private:
    std::atomic<int> mReason{SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM};
    gio::Registration mExport;
};

// Empty if the owner does not reply with a number.
std::optional<int> askReason(const std::string& owner) {
    try {
        const auto answer = bus::session().call({owner, kPath, "org.freedesktop.DBus.Properties"}, "Get",
                                                gio::Variant::tuple(kInterface, "Reason"), {kAnswerMs, false});
        return std::get<0>(answer.fields<gio::Variant>()).as<int>();
    } catch (const std::runtime_error&) {
        return std::nullopt;
    }
}

}  // namespace

void showFocusReason(int reason) {
    process::shared<ShownReason>().set(reason);
}

sound_stream_focus_change_reason_e focusReasonOf(const std::string& owner) {
    const int reason = askReason(owner).value_or(-1);
    const bool known =
        reason >= SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA && reason <= SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA_EXTERNAL_ONLY;
    return known ? static_cast<sound_stream_focus_change_reason_e>(reason) : SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
}

}  // namespace audio
