// SPDX-License-Identifier: Apache-2.0
#include "gio/SocketWatch.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace gio {

SocketWatch::SocketWatch(int descriptor, std::function<void()> received) : mReceived(std::move(received)) {
    Error error;
    mSocket.reset(g_socket_new_from_fd(descriptor, error.out()));
    if (mSocket == nullptr) {
        throw std::runtime_error(error.message());
    }
    mSource.reset(g_socket_create_source(mSocket.get(), G_IO_IN, nullptr));
    g_source_set_callback(mSource.get(), G_SOURCE_FUNC(onReadable), this, nullptr);
    g_source_attach(mSource.get(), g_main_context_get_thread_default());
}

SocketWatch::~SocketWatch() {
    g_source_destroy(mSource.get());
}

gboolean SocketWatch::onReadable(GSocket* socket, GIOCondition, gpointer self) noexcept {
    std::array<char, 16384> skipped{};
    while (g_socket_receive_with_blocking(socket, skipped.data(), skipped.size(), FALSE, nullptr, nullptr) > 0) {
    }
    static_cast<SocketWatch*>(self)->mReceived();
    return G_SOURCE_CONTINUE;
}

}  // namespace gio
