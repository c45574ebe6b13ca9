// SPDX-License-Identifier: Apache-2.0
/* Directories of the platform. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

enum tzplatform_variable {
    TZPLATFORM_DATA_ROOT = 28, /* where the program's data (voice/data/...) is installed */
};

/* The absolute path of `path` in the directory. Any thread; may be called before main(). The platform owns the string,
 * which is valid until the next call on the same thread. Null if memory runs out. */
const char* tzplatform_mkpath(enum tzplatform_variable id, const char* path);

#ifdef __cplusplus
}
#endif
