// SPDX-License-Identifier: Apache-2.0
// Several processes use one database.
#include <sys/mman.h>

#include <atomic>
#include <memory>
#include <thread>

#include "Support.h"

namespace localdb_test {

namespace {

class ASharedDatabase : public DatabaseFolder {};

constexpr int kUpdates = 100;
constexpr int kUpdatesOfEachWriter = 15;  // SQLite's lock is not fair: a writer could wait for very long otherwise
constexpr int kReaders = 3;

// Shared by these processes.
struct Board {
    std::atomic<int> reading{0};
    std::atomic<bool> written{false};
};

struct Unmap {
    void operator()(Board* board) const noexcept { munmap(board, sizeof(Board)); }
};

std::unique_ptr<Board, Unmap> makeBoard() {
    void* memory = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return std::unique_ptr<Board, Unmap>(::new (memory) Board);
}

void readUntilWritten(Board& board) {
    const Manager manager = openDatabase("Profile");
    int walks = 0;
    do {
        markOf(walk(manager.get(), "Profile"));
        if (walks++ == 0) {
            ++board.reading;
        }
    } while (!board.written && !testing::Test::HasFailure());
    EXPECT_GT(walks, 1);
}

void writeMany(const std::string& mark, int number, int updates) {
    const Manager manager = openDatabase("Profile");
    for (int i = 0; i < updates; ++i) {
        ASSERT_EQ(update(manager.get(), users(mark + std::to_string(i), number + i)), VRD_ERROR_NONE);
    }
}

TEST_F(ASharedDatabase, IsReadCompletelyBySeveralProcessesWhileOneWrites) {
    const auto board = makeBoard();
    update(openDatabase("Profile").get(), users("first", 10));
    std::vector<pid_t> readers;
    for (int i = 0; i < kReaders; ++i) {
        readers.push_back(inChild([&] { readUntilWritten(*board); }));
    }
    while (board->reading < kReaders) {
        std::this_thread::yield();
    }
    writeMany("x", 10, kUpdates);
    board->written = true;
    for (const pid_t reader : readers) {
        EXPECT_EQ(await(reader), 0);
    }
}

TEST_F(ASharedDatabase, AppliesTheUpdatesOfSeveralProcessesOneAfterTheOther) {
    std::vector<pid_t> writers;
    for (const char* mark : {"a", "b", "c"}) {
        writers.push_back(inChild([=] { writeMany(mark, 5, kUpdatesOfEachWriter); }));
    }
    for (const pid_t writer : writers) {
        EXPECT_EQ(await(writer), 0);
    }
    EXPECT_NE(markOf(walk(openDatabase("Profile").get(), "Profile")), "none");
}

TEST_F(ASharedDatabase, DoesNotMakeAWriterWaitForAReader) {
    const Manager reader = openDatabase("Profile");
    update(reader.get(), users("old", 3));
    const auto updateMeanwhile = [](const char*, int, const char*, void* code) {
        *static_cast<int*>(code) =
            await(inChild([] { ASSERT_EQ(update(openDatabase("Profile").get(), users("new", 2)), 0); }));
        return false;
    };
    int code = -1;
    EXPECT_EQ(vrd_manager_foreach_table(reader.get(), "Profile", updateMeanwhile, &code), VRD_ERROR_NONE);
    EXPECT_EQ(code, 0) << "the writer finished during the iteration";
    EXPECT_EQ(markOf(walk(reader.get(), "Profile")), "new");
}

}  // namespace

}  // namespace localdb_test
