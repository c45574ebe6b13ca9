/* SPDX-License-Identifier: Apache-2.0 */
/* The data is where the SDK's package installs it. */
#include <stdio.h>
#include <tzplatform_config.h>

const char* tzplatform_mkpath(enum tzplatform_variable id, const char* path) {
    static _Thread_local char absolute[4096];
    snprintf(absolute, sizeof absolute, "/usr/share/orvane-da/%s", path);
    return absolute;
}
