// SPDX-License-Identifier: Apache-2.0
// Owns what the modules of one process share: connections, threads, and lists. Each object is created on first use and
// destroyed when the process ends.
#pragma once

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

// The process ends, and what a call needs is gone.
class Ended : public std::runtime_error {
public:
    Ended() : std::runtime_error("the process ends") {}
};

class Owner {
public:
    // Of this process. It ends after the last static object of the program.
    static Owner& instance();

    Owner() = default;
    ~Owner() { end(); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    // The process's one T. The first call on any thread creates it; a constructor that throws leaves nothing behind.
    //
    // T gets what it uses in its constructor and keeps the references: this fixes the order of destruction. T never
    // calls get() in its destructor. A class with a thread also has `void stop() noexcept`, which joins the thread and
    // drops the work that waits for it.
    //
    // Throws Ended in a Call that begins to use the owner after its end.
    template <typename T>
    T& get();

    // Refuses new calls, waits for those in progress, stops every thread, and then destroys every object; both start
    // with the newest object. After the threads have stopped, nothing can call an object that is being destroyed. Not
    // on a thread that an object owns.
    //
    // A call in progress keeps its objects in use for as long as it likes. When one takes longer than a second, the
    // objects stay as they are until the process is gone.
    void end() noexcept;

private:
    friend class Call;

    struct Slot {
        std::mutex creation;
        std::shared_ptr<void> object;
        void (*stop)(void*) noexcept = nullptr;
    };

    void enter();
    void leave() noexcept;
    Slot& slotOf(std::type_index type);
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
    std::vector<Slot*> mCreated;  // the newest last
    int mCalls = 0;               // that use the owner
    bool mEnded = false;
};

// One call of a C function, on the stack of its thread. It uses the owner from its first get() until it returns, and
// the owner's end waits for it. A call within a call is part of it.
class Call {
public:
    Call();
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

private:
    friend class Owner;
    Owner* mOwner = nullptr;  // that it uses
    const bool mOutermost;
};

template <typename T>
T& Owner::get() {
    enter();
    Slot& slot = slotOf(typeid(T));
    const std::lock_guard lock(slot.creation);
    if (!slot.object) {
        throwIfEnded();
        slot.object = std::make_shared<T>();
        slot.stop = Stop<T>::run;
        add(slot);
    }
    return *static_cast<T*>(slot.object.get());
}

template <typename T>
T& shared() {
    return Owner::instance().get<T>();
}

}  // namespace process
