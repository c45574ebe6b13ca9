// SPDX-License-Identifier: Apache-2.0
// The fields of a request before it is sent.
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "app_control.h"
#include "app_manager.h"

namespace {

class ARequestHandle : public testing::Test {
protected:
    ARequestHandle() { app_control_create(&mRequest); }
    ~ARequestHandle() override { app_control_destroy(mRequest); }

    app_control_h mRequest = nullptr;
};

TEST_F(ARequestHandle, ReturnsNullForFieldsThatWereNeverSet) {
    char text = 0;
    for (const auto get : {app_control_get_app_id, app_control_get_operation, app_control_get_uri}) {
        char* value = &text;
        EXPECT_EQ(get(mRequest, &value), APP_CONTROL_ERROR_NONE);
        EXPECT_EQ(value, nullptr);
    }
}

TEST_F(ARequestHandle, ReplacesAnExtraWithASingleValueOrAnArray) {
    const char* list[] = {"a", "b"};
    bool array = false;
    EXPECT_EQ(app_control_add_extra_data(mRequest, "key", "one"), APP_CONTROL_ERROR_NONE);
    EXPECT_EQ(app_control_add_extra_data_array(mRequest, "key", list, 2), APP_CONTROL_ERROR_NONE);
    EXPECT_EQ(app_control_is_extra_data_array(mRequest, "key", &array), APP_CONTROL_ERROR_NONE);
    EXPECT_TRUE(array);
    char* value = nullptr;
    EXPECT_EQ(app_control_get_extra_data(mRequest, "key", &value), APP_CONTROL_ERROR_INVALID_DATA_TYPE);
    EXPECT_EQ(app_control_add_extra_data(mRequest, "key", "two"), APP_CONTROL_ERROR_NONE);
    char** values = nullptr;
    int length = 0;
    EXPECT_EQ(app_control_get_extra_data_array(mRequest, "key", &values, &length), APP_CONTROL_ERROR_INVALID_DATA_TYPE);
    ASSERT_EQ(app_control_get_extra_data(mRequest, "key", &value), APP_CONTROL_ERROR_NONE);
    EXPECT_STREQ(value, "two");
    free(value);
}

TEST_F(ARequestHandle, RefusesInvalidExtras) {
    const char* list[] = {"a"};
    char* value = nullptr;
    EXPECT_EQ(app_control_add_extra_data(mRequest, "", "x"), APP_CONTROL_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(app_control_add_extra_data(mRequest, nullptr, "x"), APP_CONTROL_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(app_control_add_extra_data(mRequest, "key", nullptr), APP_CONTROL_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(app_control_add_extra_data_array(mRequest, "key", list, -1), APP_CONTROL_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(app_control_add_extra_data_array(mRequest, "key", nullptr, 1), APP_CONTROL_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(app_control_get_extra_data(mRequest, "key", &value), APP_CONTROL_ERROR_KEY_NOT_FOUND);
}

TEST_F(ARequestHandle, RefusesCallsWithoutAHandleAKeyOrAnOutputArgument) {
    app_control_add_extra_data(mRequest, "key", "one");
    char* value = nullptr;
    char** values = nullptr;
    int length = 0;
    bool array = false;
    const auto callback = [](app_control_h, const char*, void*) { return true; };
    std::vector<int> codes{app_control_create(nullptr),
                           app_control_foreach_extra_data(nullptr, callback, nullptr),
                           app_control_foreach_extra_data(mRequest, nullptr, nullptr),
                           app_control_get_extra_data(nullptr, "key", &value),
                           app_control_get_extra_data(mRequest, nullptr, &value),
                           app_control_get_extra_data(mRequest, "key", nullptr),
                           app_control_get_extra_data_array(nullptr, "key", &values, &length),
                           app_control_get_extra_data_array(mRequest, nullptr, &values, &length),
                           app_control_get_extra_data_array(mRequest, "key", nullptr, &length),
                           app_control_get_extra_data_array(mRequest, "key", &values, nullptr),
                           app_control_is_extra_data_array(nullptr, "key", &array),
                           app_control_is_extra_data_array(mRequest, nullptr, &array),
                           app_control_is_extra_data_array(mRequest, "key", nullptr)};
    for (const auto set : {app_control_set_app_id, app_control_set_operation, app_control_set_uri}) {
        codes.push_back(set(nullptr, "text"));
    }
    for (const auto get : {app_control_get_app_id, app_control_get_operation, app_control_get_uri}) {
        codes.push_back(get(nullptr, &value));
        codes.push_back(get(mRequest, nullptr));
    }
    EXPECT_EQ(codes, std::vector<int>(codes.size(), APP_CONTROL_ERROR_INVALID_PARAMETER));
}

TEST_F(ARequestHandle, IteratesOverItsKeysInOrderUntilTheCallbackReturnsFalse) {
    for (const char* key : {"c", "a", "b"}) {
        app_control_add_extra_data(mRequest, key, "x");
    }
    std::string seen;
    app_control_foreach_extra_data(
        mRequest,
        [](app_control_h request, const char* key, void* keys) {
            app_control_add_extra_data(request, "added", "meanwhile");
            *static_cast<std::string*>(keys) += key;
            return *key != 'b';
        },
        &seen);
    EXPECT_EQ(seen, "ab");
}

TEST_F(ARequestHandle, ReturnsAnErrorForAnExceptionOfTheCallback) {
    app_control_add_extra_data(mRequest, "key", "x");
    const auto throws = [](app_control_h, const char*, void*) -> bool { throw std::runtime_error("a fault"); };
    EXPECT_EQ(app_control_foreach_extra_data(mRequest, throws, nullptr), APP_CONTROL_ERROR_IO_ERROR);
}

TEST_F(ARequestHandle, WithInvalidUtf8IsRefusedAndLeavesTheBusOpen) {
    app_control_set_app_id(mRequest, "org.example.anybody");
    app_control_set_operation(mRequest, "\xff");
    EXPECT_EQ(app_control_send_launch_request(mRequest, nullptr, nullptr), APP_CONTROL_ERROR_INVALID_PARAMETER);
    app_control_set_app_id(mRequest, nullptr);
    app_control_set_operation(mRequest, APP_CONTROL_OPERATION_VIEW);
    app_control_set_uri(mRequest, "file:///\xff");
    EXPECT_EQ(app_control_send_launch_request(mRequest, nullptr, nullptr), APP_CONTROL_ERROR_INVALID_PARAMETER);
    bool running = true;
    EXPECT_EQ(app_manager_is_running("org.example.anybody", &running), APP_MANAGER_ERROR_NONE);
    EXPECT_FALSE(running);
}

}  // namespace
