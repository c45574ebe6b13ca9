/* Folders of the platform. */
#pragma once

#ifdef __cplusplus
extern "C" {
#endif

enum tzplatform_variable {
    TZPLATFORM_DATA_ROOT = 28, /* where the program's own data (voice/data/...) is installed */
};

/* The absolute path of `path` below the folder. May be called before main(), on any thread. The text is the platform's
 * and valid until the thread's next call; null when memory is short. */
const char* tzplatform_mkpath(enum tzplatform_variable id, const char* path);

#ifdef __cplusplus
}
#endif
