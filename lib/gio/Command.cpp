// SPDX-License-Identifier: Apache-2.0
#include "gio/Command.h"

#include "gio/GPointer.h"

namespace gio {

bool succeeds(const std::vector<std::string>& words) {
    std::vector<const char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    arguments.push_back(nullptr);
    const auto quiet =
        static_cast<GSubprocessFlags>(G_SUBPROCESS_FLAGS_STDOUT_SILENCE | G_SUBPROCESS_FLAGS_STDERR_SILENCE);
    const Object<GSubprocess> process(g_subprocess_newv(arguments.data(), quiet, nullptr));
    return process && g_subprocess_wait_check(process.get(), nullptr, nullptr) != FALSE;
}

}  // namespace gio
