// SPDX-License-Identifier: Apache-2.0
#include "gio/MethodCall.h"

namespace gio {

MethodCall::MethodCall(GDBusMethodInvocation* owned)
    : mInvocation(owned),
      mSender(g_dbus_method_invocation_get_sender(owned)),
      mMethod(g_dbus_method_invocation_get_method_name(owned)),
      mArguments(g_variant_ref(g_dbus_method_invocation_get_parameters(owned))) {}

void MethodCall::reply(const Variant& result) {
    g_dbus_method_invocation_return_value(mInvocation.release(), result.get());
}

void MethodCall::fail(const std::string& errorName, const std::string& text) {
    g_dbus_method_invocation_return_dbus_error(mInvocation.release(), errorName.c_str(), text.c_str());
}

}  // namespace gio
