// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace localdb_test {

namespace {

bool collect(const char* field, int kind, const char* value, void* data) noexcept {
    static_cast<Fields*>(data)->push_back(std::string(field) + ":" + std::to_string(kind) + "=" + value);
    return true;
}

}  // namespace

Manager openDatabase(const std::string& name, int expected) {
    vrd_manager_h manager = nullptr;
    EXPECT_EQ(vrd_manager_create(&manager, name.c_str()), expected);
    EXPECT_EQ(manager != nullptr, expected == VRD_ERROR_NONE);
    return Manager(manager);
}

int update(vrd_manager_h manager, const List& list) {
    std::vector<std::unique_ptr<vrd_bundle_s, Destroy>> owned;
    GList* bundles = nullptr;
    for (const Record& record : list) {
        vrd_bundle_h bundle = nullptr;
        EXPECT_EQ(vrd_bundle_create(&bundle), VRD_ERROR_NONE);
        owned.emplace_back(bundle);
        for (const auto& [key, value] : record) {
            EXPECT_EQ(vrd_bundle_add_str(bundle, key.c_str(), value.c_str()), VRD_ERROR_NONE);
        }
        bundles = g_list_prepend(bundles, bundle);
    }
    bundles = g_list_reverse(bundles);
    const int result = vrd_manager_private_update(manager, bundles);
    g_list_free(bundles);
    return result;
}

Fields walk(vrd_manager_h manager, const std::string& table, int expected) {
    Fields fields;
    EXPECT_EQ(vrd_manager_foreach_table(manager, table.c_str(), collect, &fields), expected);
    return fields;
}

List users(const std::string& mark, int count) {
    List list;
    for (int i = 0; i < count; ++i) {
        list.push_back({{"userId", mark + ";" + std::to_string(count)}, {"userName", std::string(100, 'n')}});
    }
    return list;
}

std::string markOf(const Fields& fields) {
    if (fields.empty()) {
        return "none";
    }
    const std::string first = fields.front();
    const auto equals = first.find('=');
    const auto semicolon = first.find(';');
    if (equals == std::string::npos || semicolon == std::string::npos) {
        ADD_FAILURE() << "not a user: " << first;
        return "broken";
    }
    EXPECT_EQ(fields.size(), 2 * std::stoul(first.substr(semicolon + 1))) << "the list is complete";
    for (std::size_t i = 0; i < fields.size(); i += 2) {
        EXPECT_EQ(fields[i], first) << "all records come from one update";
    }
    return first.substr(equals + 1, semicolon - equals - 1);
}

std::vector<std::string> logOf(const std::function<void()>& action) {
    testing::internal::CaptureStderr();
    action();
    std::istringstream text(testing::internal::GetCapturedStderr());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

pid_t inChild(const std::function<void()>& action) {
    const pid_t child = ::fork();
    if (child == 0) {
        [&]() noexcept { action(); }();  // an exception ends the child here, and not in the test framework
        fflush(nullptr);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    return child;
}

int await(pid_t child) {
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

DatabaseFolder::DatabaseFolder() {
    char pattern[] = "/tmp/orvane-db-XXXXXX";
    mPath = mkdtemp(pattern);
    setenv("ORVANE_DB_DIR", mPath.c_str(), 1);
}

DatabaseFolder::~DatabaseFolder() {
    std::filesystem::remove_all(mPath);
}

}  // namespace localdb_test
