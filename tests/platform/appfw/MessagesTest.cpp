// Message ports and events, between this process and itself through the real bus.
#include <Ecore.h>
#include <gtest/gtest.h>

#include <functional>

#include "PrivateBus.h"
#include "app_event.h"
#include "appfw/Bundle.h"
#include "lib/gio/Bus.h"
#include "lib/gio/IoThread.h"
#include "message_port.h"

namespace {

constexpr char APP_ID[] = "org.example.messages";
constexpr double WATCHDOG_SECONDS = 20;

struct Received {
    int messages = 0;
    bundle_s last;
    std::string app;
    std::string port;
};

void onMessage(int, const char* app, const char* port, bool, bundle* message, void* received) noexcept {
    *static_cast<Received*>(received) = {static_cast<Received*>(received)->messages + 1, *message, app ? app : "",
                                         port ? port : "<none>"};
}

void onEvent(const char*, bundle* data, void* received) noexcept {
    auto* seen = static_cast<Received*>(received);
    ++seen->messages;
    seen->last = *data;
}

Eina_Bool wakeUp(void*) noexcept {
    return ECORE_CALLBACK_RENEW;
}

class AnApplication : public testing::Test {
protected:
    void SetUp() override {
        privateBusAddress();
        ecore_app_no_system_modules();
        ecore_init();
        ASSERT_TRUE(gio::Bus::session().own(APP_ID));
    }
    void TearDown() override { ecore_shutdown(); }

    static bool runUntil(const std::function<bool()>& condition) {
        Ecore_Timer* timer = ecore_timer_add(0.01, wakeUp, nullptr);
        const double end = ecore_time_get() + WATCHDOG_SECONDS;
        while (!condition() && ecore_time_get() < end) {
            ecore_main_loop_iterate_may_block(1);
        }
        ecore_timer_del(timer);
        return condition();
    }

    static void announce(const char* event) {
        gio::Error error;
        bundle_s data;
        bundle_add_str(&data, "key", "value");
        g_dbus_connection_emit_signal(gio::Bus::session().connection(), nullptr, "/org/orvane/Event",
                                      "org.orvane.Event1", "Emitted",
                                      g_variant_new("(s@a(ayay))", event, appfw::toVariant(data)), error.out());
    }

    Received mReceived;
};

TEST_F(AnApplication, GetsMessagesOnItsPortWholeWhateverTheirBytes) {
    const int id = message_port_register_trusted_local_port("partial", onMessage, &mReceived);
    ASSERT_GT(id, 0);
    const std::string longText = std::string(300000, 'x') + "\xff\x01";
    bundle_s message;
    bundle_add_str(&message, "text", longText.c_str());
    EXPECT_EQ(message_port_send_trusted_message(APP_ID, "partial", &message), MESSAGE_PORT_ERROR_NONE);
    ASSERT_TRUE(runUntil([&] { return mReceived.messages == 1; }));
    ASSERT_EQ(mReceived.last.entries.size(), 1U);
    EXPECT_EQ(mReceived.last.entries[0].second.value, longText);
    EXPECT_EQ(mReceived.port, "<none>");
    EXPECT_EQ(message_port_unregister_trusted_local_port(id), MESSAGE_PORT_ERROR_NONE);
}

TEST_F(AnApplication, GetsAnEmptyMessageAndTheSendersPort) {
    const int id = message_port_register_trusted_local_port("partial", onMessage, &mReceived);
    bundle_s message;
    EXPECT_EQ(message_port_send_trusted_message_with_local_port(APP_ID, "partial", &message, id),
              MESSAGE_PORT_ERROR_NONE);
    ASSERT_TRUE(runUntil([&] { return mReceived.messages == 1; }));
    EXPECT_TRUE(mReceived.last.entries.empty());
    EXPECT_EQ(mReceived.port, "partial");
    message_port_unregister_trusted_local_port(id);
}

TEST_F(AnApplication, IsSeenToHaveAPortOnlyWhileItIsRegistered) {
    const int id = message_port_register_trusted_local_port("partial", onMessage, &mReceived);
    bool exists = false;
    EXPECT_EQ(message_port_check_trusted_remote_port(APP_ID, "partial", &exists), MESSAGE_PORT_ERROR_NONE);
    EXPECT_TRUE(exists);
    message_port_unregister_trusted_local_port(id);
    EXPECT_EQ(message_port_check_trusted_remote_port(APP_ID, "partial", &exists), MESSAGE_PORT_ERROR_NONE);
    EXPECT_FALSE(exists);
    bundle_s message;
    EXPECT_EQ(message_port_send_trusted_message(APP_ID, "partial", &message), MESSAGE_PORT_ERROR_PORT_NOT_FOUND);
}

TEST_F(AnApplication, GetsNothingMoreOnceThePortIsUnregisteredEvenWhatHasArrived) {
    const int id = message_port_register_trusted_local_port("partial", onMessage, &mReceived);
    const int other = message_port_register_trusted_local_port("other", onMessage, &mReceived);
    bundle_s message;
    message_port_send_trusted_message(APP_ID, "partial", &message);
    message_port_unregister_trusted_local_port(id);
    bundle_add_str(&message, "the", "second");
    message_port_send_trusted_message(APP_ID, "other", &message);
    ASSERT_TRUE(runUntil([&] { return mReceived.messages > 0 && !mReceived.last.entries.empty(); }));
    EXPECT_EQ(mReceived.messages, 1);
    message_port_unregister_trusted_local_port(other);
}

TEST_F(AnApplication, HearsAnEventOfTheOwnerOfItsIdOnly) {
    event_handler_h handler = nullptr;
    event_handler_h strange = nullptr;
    Received others;
    ASSERT_EQ(event_add_event_handler("event.org.example.messages.notification", onEvent, &mReceived, &handler),
              EVENT_ERROR_NONE);
    ASSERT_EQ(event_add_event_handler("event.org.example.somebody.notification", onEvent, &others, &strange),
              EVENT_ERROR_NONE);
    announce("event.org.example.somebody.notification");
    announce("event.org.example.messages.notification");
    ASSERT_TRUE(runUntil([&] { return mReceived.messages == 1; }));
    EXPECT_EQ(mReceived.last.entries.at(0).second.value, "value");
    EXPECT_EQ(others.messages, 0);
    EXPECT_EQ(event_remove_event_handler(handler), EVENT_ERROR_NONE);
    EXPECT_EQ(event_remove_event_handler(strange), EVENT_ERROR_NONE);
}

}  // namespace
