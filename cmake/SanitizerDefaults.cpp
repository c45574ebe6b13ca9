// SPDX-License-Identifier: Apache-2.0
// What every program says to its sanitizers. Only libraries that are not ours are named, each with the reason; what
// they call back is watched as everything of ours is.

extern "C" {

const char* __lsan_default_suppressions();
const char* __tsan_default_suppressions();

const char* __lsan_default_suppressions() {
    return
        // The classes of EFL, in a program that ends without shutting Ecore down.
        "leak:efl_class_new\n";
}

const char* __tsan_default_suppressions() {
    return
        // GLib locks with futexes of its own, and is not built for ThreadSanitizer, which therefore takes everything
        // that its threads hand to one another for a race.
        "called_from_lib:libglib-2.0.so\n"
        "called_from_lib:libgobject-2.0.so\n"
        "called_from_lib:libgio-2.0.so\n"
        // Locks with GLib's.
        "called_from_lib:libdconf.so.1\n"
        // Shares memory with the server and counts with atomics that ThreadSanitizer does not see. It never calls us:
        // libpulse does.
        "race:libpulsecommon-\n"
        // Its handlers of SIGCHLD and the like write to a pipe without putting errno back.
        "signal:libecore.so.1\n";
}

}  // extern "C"
