// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "gio/GPointer.h"
#include "gio/Variant.h"

namespace gio {

// A method call to an exported object. If it is destroyed without a reply or an error, the caller waits until its
// timeout.
class MethodCall {
public:
    explicit MethodCall(GDBusMethodInvocation* owned);

    const std::string& sender() const { return mSender; }  // unique name
    const std::string& method() const { return mMethod; }
    const Variant& arguments() const { return mArguments; }

    // Call at most one of these, at most once. Any thread.
    void reply(const Variant& result = {});
    void fail(const std::string& errorName, const std::string& text);
    bool isAnswered() const { return mInvocation == nullptr; }

private:
    Object<GDBusMethodInvocation> mInvocation;
    std::string mSender;
    std::string mMethod;
    Variant mArguments;
};

}  // namespace gio
