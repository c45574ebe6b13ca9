// SPDX-License-Identifier: Apache-2.0
#include "fake/app/FakeAppManager.h"
#include "fake/data/FakeSettings.h"
#include "fake/voice/FakeNlu.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;

class LaunchTest : public VoiceTest {
protected:
    static Texts launch(const char* actionName, std::optional<std::string> package, const char* region = "US",
                        const char* country = "US") {
        fake::setSetting("db/setting/region_code", std::string(region));
        fake::setSetting("db/setting/country_code", std::string(country));
        fake::NluResult result;
        result.actionName = actionName;
        result.launchPackage = package;
        return launch(result);
    }
    static Texts launch(const fake::NluResult& result) {
        fake::setNluResult(result);
        VoiceControl control;
        vrp_response_data_s* response = vrp_response_data_parse("{}");
        control.launchApps(response);
        vrp_response_data_destroy(response);
        return sent();
    }
    static Texts main(const std::string& package) { return {package + " " + APP_CONTROL_OPERATION_MAIN + " -"}; }
    static constexpr char GENERAL[] = "com.generalrecipe.app";
};

TEST_F(LaunchTest, TheHomeScreenOpensWithAnyPackageAndWithoutOne) {
    EXPECT_EQ(launch("Go to Home Screen", "other"), main("org.tizen.menu-screen"));
    fake::platform().reset();
    EXPECT_EQ(launch("Go to Home Screen", {}), main("org.tizen.menu-screen"));
}

TEST_F(LaunchTest, AnApplicationOpensAtItsMainEntry) {
    EXPECT_EQ(launch("Open App", " org.music\n"), main("org.music"));
}

TEST_F(LaunchTest, AMissingPackageIsLoggedWithItsCodeAndLaunchesNothing) {
    EXPECT_TRUE(launch("Open App", {}).empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vrp_response_data_get_action_data() failed: [-1001]"));
}

TEST_F(LaunchTest, AResultWithoutActionDataIsLoggedWithItsCodeAndLaunchesNothing) {
    fake::NluResult result;
    result.actionName = "Open App";
    result.actionData = false;
    result.launchPackage = "org.music";
    fake::platform().answer("vrp_response_data_get_action_data", -7);
    EXPECT_TRUE(launch(result).empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vrp_response_data_get_action_data() failed: [-7]"));
    EXPECT_EQ(fake::platform().count("vrp_launch_apps_action_data_get_launch_apps_data"), 0u);
}

TEST_F(LaunchTest, TheHomeScreenOpensWithoutActionData) {
    fake::NluResult result;
    result.actionName = "Go to Home Screen";
    result.actionData = false;
    EXPECT_EQ(launch(result), main("org.tizen.menu-screen"));
    EXPECT_EQ(fake::platform().count("vrp_response_data_get_action_data"), 0u);
}

TEST_F(LaunchTest, TheGeneralRecipeAppDependsOnTheRegion) {
    const struct {
        const char* region;
        const char* country;
        const char* package;
    } rows[] = {{"KR", "KR", "com.delicook.recipes"},
                {"EU", "DE", "org.tizen.WeblinkApps-Allrecipes"},
                {"US", "US", GENERAL},
                {"AU", "AU", GENERAL},
                {"ZZ", "CN", GENERAL}};
    for (const auto& row : rows) {
        fake::platform().reset();
        EXPECT_EQ(launch("Open App", GENERAL, row.region, row.country), main(row.package)) << row.region;
    }
}

TEST_F(LaunchTest, TheGeneralRecipeAppIsNotSupportedInSwedenAndNorwayInAnyRegion) {
    for (const char* country : {"SE", "NO"}) {
        for (const char* region : {"EU", "US", "KR", "AU", "ZZ"}) {
            fake::platform().reset();
            EXPECT_TRUE(launch("Open App", GENERAL, region, country).empty());
            EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Not supported recipe app name"));
        }
    }
}

TEST_F(LaunchTest, OtherApplicationsOpenInSweden) {
    EXPECT_EQ(launch("Open App", "org.music", "EU", "SE"), main("org.music"));
}

TEST_F(LaunchTest, APackageNamedNotSupportedLaunchesNothing) {
    EXPECT_TRUE(launch("Open App", "RecipeNotSupported").empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Not supported recipe app name"));
}

TEST_F(LaunchTest, CloseAppTerminatesTheApplication) {
    fake::setRunning("org.music");
    EXPECT_TRUE(launch("Close App", "org.music").empty());
    EXPECT_EQ(fake::platform().textsOf({"app_manager_is", "app_manager_t"}),
              (Texts{"app_manager_is_running(org.music)", "app_manager_terminate_app()"}));
}

TEST_F(LaunchTest, ClosingTheGeneralRecipeAppClosesTheOneOfTheRegion) {
    fake::setRunning("com.delicook.recipes");
    fake::setRunning(GENERAL);
    EXPECT_TRUE(launch("Close App", GENERAL, "KR", "KR").empty());
    EXPECT_EQ(fake::platform().textsOf({"app_manager_get_app_context"}),
              Texts{"app_manager_get_app_context(com.delicook.recipes)"});
}
