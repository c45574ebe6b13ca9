// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace sim {

// Gives the process a private mount namespace: other processes, except its children, do not see what it mounts from
// now on. Call it before the process has threads. Throws std::system_error, which names the step that the machine
// refuses; it needs root, or else user namespaces outside a chroot.
void enterMountNamespace();

}  // namespace sim
