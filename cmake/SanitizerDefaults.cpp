// SPDX-License-Identifier: Apache-2.0
// The defaults of the sanitizers for every program. They suppress reports only in foreign libraries, each for a stated
// reason; callbacks from such a library into our code are still checked.

extern "C" {

const char* __lsan_default_suppressions();
const char* __tsan_default_suppressions();

const char* __lsan_default_suppressions() {
    return
        // A program that exits without shutting down Ecore leaks EFL's classes.
        "leak:efl_class_new\n";
}

const char* __tsan_default_suppressions() {
    return
        // GLib uses its own futex locks and is not built with ThreadSanitizer, which therefore reports a race for
        // everything that GLib passes between threads.
        "called_from_lib:libglib-2.0.so\n"
        "called_from_lib:libgobject-2.0.so\n"
        "called_from_lib:libgio-2.0.so\n"
        // dconf uses GLib's locks.
        "called_from_lib:libdconf.so.1\n"
        // This library shares memory with the sound server and uses atomics that ThreadSanitizer does not see. Only
        // libpulse calls our code.
        "race:libpulsecommon-\n"
        // Ecore's signal handlers write to a pipe without restoring errno.
        "signal:libecore.so.1\n";
}

}  // extern "C"
