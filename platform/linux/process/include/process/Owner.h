// SPDX-License-Identifier: Apache-2.0
// Owns the objects that the modules of one process share: connections, threads, and lists. Creates each object on first
// use and destroys it when the process exits.
#pragma once

#include <atomic>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <type_traits>
#include <typeindex>
#include <utility>
#include <vector>

namespace process {

// The process is exiting, and an object that the call needs no longer exists.
class Ended : public std::runtime_error {
public:
    Ended() : std::runtime_error("the process is exiting") {}
};

class Owner {
public:
    // The owner of this process. It ends after all static objects of the program are destroyed.
    static Owner& instance();

    Owner() = default;
    ~Owner() { end(); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    // The process's only T. The first call, on any thread, creates it. If the constructor throws, a later call tries
    // again.
    //
    // T gets the objects that it uses in its constructor and keeps references to them, which determines the order of
    // destruction. T must not call get() in its destructor. A class with a thread also has `void stop() noexcept`,
    // which joins the thread and drops its queued work.
    //
    // Throws Ended if the current Call first uses the owner after its end.
    template <typename T>
    T& get();

    // Rejects new calls, waits for those in progress, stops all threads, and then destroys all objects, each time
    // newest first. After the threads have stopped, nothing can call an object that is being destroyed. Must not run on
    // a thread that an object owns.
    //
    // If a call in progress takes longer than one second, the objects are never destroyed, because the call may still
    // use them.
    void end() noexcept;

private:
    friend class Call;
    template <typename T>
    friend T& shared();

    struct Slot {
        std::mutex creation;
        std::shared_ptr<void> object;
        std::atomic<void*> existing{nullptr};  // the object, for a call that finds it created
        void (*stop)(void*) noexcept = nullptr;
    };

    void enter();
    void leave() noexcept;
    Slot& slotOf(std::type_index type);
    template <typename T>
    T& get(Slot& slot);
    void throwIfEnded();
    void add(Slot& slot);
    template <typename T, typename = void>
    struct Stop {
        static void run(void*) noexcept {}
    };
    template <typename T>
    struct Stop<T, std::void_t<decltype(std::declval<T&>().stop())>> {
        static void run(void* object) noexcept { static_cast<T*>(object)->stop(); }
    };

    std::mutex mMutex;
    std::condition_variable mLeft;
    std::map<std::type_index, Slot> mSlots;
    std::vector<Slot*> mCreated;  // newest last
    // Twice the number of calls that use the owner, plus kEnded after the end. One number, because each call of a C
    // function changes it twice and should not wait for a lock.
    std::atomic<unsigned> mCalls{0};
};

// One call of a C function, on the stack of its thread. It uses the owner from its first get() until it returns, and
// the owner waits for it before it ends. A nested call is part of the outer call.
class Call {
public:
    Call();
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

private:
    friend class Owner;
    Owner* mOwner = nullptr;  // set after the first get()
    const bool mOutermost;
};

template <typename T>
T& Owner::get() {
    return get<T>(slotOf(typeid(T)));
}

template <typename T>
T& Owner::get(Slot& slot) {
    enter();
    if (void* const existing = slot.existing.load()) {
        return *static_cast<T*>(existing);
    }
    const std::lock_guard lock(slot.creation);
    if (!slot.object) {
        throwIfEnded();
        slot.object = std::make_shared<T>();
        slot.stop = Stop<T>::run;
        add(slot);
        slot.existing = slot.object.get();
    }
    return *static_cast<T*>(slot.object.get());
}

// The process's only T, see Owner::get().
template <typename T>
T& shared() {
    static Owner::Slot& slot = Owner::instance().slotOf(typeid(T));
    return Owner::instance().get<T>(slot);
}

}  // namespace process
