// SPDX-License-Identifier: Apache-2.0
// The defaults of the sanitizers for every program. They suppress reports only in foreign libraries, each for a stated
// reason; callbacks from such a library into our code are still checked.

extern "C" {

const char* __lsan_default_suppressions();
const char* __tsan_default_suppressions();

const char* __lsan_default_suppressions() {
    return
        // A program that ends without shutting Ecore down leaks the classes of EFL.
        "leak:efl_class_new\n";
}

const char* __tsan_default_suppressions() {
    return
        // GLib locks with its own futexes and is not built for ThreadSanitizer, which therefore reports everything that
        // GLib passes between threads as a race.
        "called_from_lib:libglib-2.0.so\n"
        "called_from_lib:libgobject-2.0.so\n"
        "called_from_lib:libgio-2.0.so\n"
        // It uses GLib's locks.
        "called_from_lib:libdconf.so.1\n"
        // It shares memory with the sound server and uses atomics that ThreadSanitizer does not see. It never calls our
        // code; libpulse does.
        "race:libpulsecommon-\n"
        // Its signal handlers write to a pipe without restoring errno.
        "signal:libecore.so.1\n";
}

}  // extern "C"
