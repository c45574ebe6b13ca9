// SPDX-License-Identifier: Apache-2.0
#include "appfw/EflLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using appfw::EflErrors;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kDead[] = "You are trying to destroy a timer which seems dead already.";

// Deletes a timer that has expired.
void expectNothing(EflErrors& errors, const std::string& timer) {
    EXPECT_THAT(errors.add("efl_data_scope_safe_get", timer), IsEmpty());
    EXPECT_THAT(errors.add("ecore_timer_del", kDead), IsEmpty());
    EXPECT_THAT(errors.add("efl_unref", timer), IsEmpty());
    EXPECT_EQ(errors.takeHeld(), std::nullopt);
}

TEST(TheLogOfEfl, ShowsNoDeletionOfATimerThatHasExpired) {
    EflErrors errors;
    expectNothing(errors, "Eo ID 1 is not a valid object.");
    expectNothing(errors, "Eo ID 2 is not a valid object.");
}

TEST(TheLogOfEfl, ShowsOtherErrorsOfTheObjectSystem) {
    EflErrors errors;
    EXPECT_THAT(errors.add("efl_unref", "Eo ID 1 is not a valid object."),
                ElementsAre("efl_unref: Eo ID 1 is not a valid object."));
    EXPECT_THAT(errors.add("efl_loop_timer_reset", "Eo ID 1 is not a valid object."),
                ElementsAre("efl_loop_timer_reset: Eo ID 1 is not a valid object."));
    EXPECT_THAT(errors.add("ecore_timer_del", "called in the wrong thread"),
                ElementsAre("ecore_timer_del: called in the wrong thread"));
}

TEST(TheLogOfEfl, ShowsAnInvalidObjectWithoutADeletion) {
    EflErrors errors;
    errors.add("efl_data_scope_safe_get", "Eo ID 1 is not a valid object.");
    EXPECT_EQ(errors.takeHeld(), "efl_data_scope_safe_get: Eo ID 1 is not a valid object.");
    EXPECT_EQ(errors.takeHeld(), std::nullopt);
}

TEST(TheLogOfEfl, ShowsAnInvalidObjectBeforeTheNextError) {
    EflErrors errors;
    errors.add("efl_data_scope_safe_get", "first");
    EXPECT_THAT(errors.add("efl_data_scope_safe_get", "second"), ElementsAre("efl_data_scope_safe_get: first"));
    EXPECT_THAT(errors.add("efl_add", "third"), ElementsAre("efl_data_scope_safe_get: second", "efl_add: third"));
}

TEST(TheLogOfEfl, ShowsAnotherObjectThatIsInvalidAfterADeletion) {
    EflErrors errors;
    errors.add("efl_data_scope_safe_get", "Eo ID 1 is not a valid object.");
    errors.add("ecore_timer_del", kDead);
    EXPECT_THAT(errors.add("efl_unref", "Eo ID 2 is not a valid object."),
                ElementsAre("efl_unref: Eo ID 2 is not a valid object."));
    EXPECT_THAT(errors.add("efl_unref", "Eo ID 1 is not a valid object."),
                ElementsAre("efl_unref: Eo ID 1 is not a valid object."));
}

}  // namespace
