// SPDX-License-Identifier: Apache-2.0
#include "Util/WebLauncher.h"

#include <orvane_da_parser.h>

#include "fake/voice/FakeNlu.h"
#include "unit/Fixture.h"

class WebLauncherTest : public SendingTest {
protected:
    static Texts launch(const fake::NluResult& result) {
        fake::setNluResult(result);
        vrp_response_data_s* response = vrp_response_data_parse("{}");
        Util::WebLauncher::launch(response);
        vrp_response_data_destroy(response);
        return sent();
    }
    static fake::NluResult search(const char* provider, const char* term, const char* url) {
        fake::NluResult result;
        result.actionName = " Web Search\n";
        result.webSearch.emplace();
        result.webSearch->provider = provider;
        result.webSearch->term = term;
        result.webSearch->url = url;
        return result;
    }
    static std::string view(const std::string& url) {
        return std::string("- ") + APP_CONTROL_OPERATION_VIEW + " " + url;
    }
};

TEST_F(WebLauncherTest, TheSearchTermFollowsTheSearchPageUnescaped) {
    EXPECT_EQ(launch(search("google", " red wine & cheese ", "u")),
              Texts{view("https://www.google.com/search?q=red wine & cheese")});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "action name : Web Search"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "https://www.google.com/search?q=red wine & cheese"));
}

TEST_F(WebLauncherTest, TheProviderMayBeCapitalized) {
    EXPECT_EQ(launch(search("Google", "x", "u")), Texts{view("https://www.google.com/search?q=x")});
}

TEST_F(WebLauncherTest, AnyOtherProviderUsesTheResultsUrl) {
    for (const char* provider : {"GOOGLE", "gOOGLE", "google.com", "other", ""}) {
        fake::platform().reset();
        EXPECT_EQ(launch(search(provider, "x", "https://own.example/")), Texts{view("https://own.example/")});
    }
}

TEST_F(WebLauncherTest, AnEmptyUrlStillOpensTheBrowser) {
    EXPECT_EQ(launch(search("other", "x", "")), Texts{view("-")});
}

TEST_F(WebLauncherTest, AResultWithoutSearchDataOpensTheBrowserWithAnEmptyUrl) {
    auto result = search("google", "x", "u");
    result.webSearch.reset();
    EXPECT_EQ(launch(result), Texts{view("-")});
}

TEST_F(WebLauncherTest, AResultWithoutActionDataOpensNothing) {
    auto result = search("google", "x", "u");
    result.actionData = false;
    fake::platform().answer("vrp_response_data_get_action_data", VRP_ERROR_NONE);
    EXPECT_TRUE(launch(result).empty());
    EXPECT_EQ(fake::platform().logs().size(), 1u) << "only the action name";
}

TEST_F(WebLauncherTest, AResultWithoutAnActionNameOpensNothing) {
    auto result = search("google", "x", "u");
    result.actionName = " \t";
    EXPECT_TRUE(launch(result).empty());
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(WebLauncherTest, ActionsThatOnlyTheUiAnswersOpenNothing) {
    for (const char* name : {"Websearch Disabled", "News Engine Unavailable", "Search Engine Unavailable",
                             "Website Unavailable", "Pseudo Escalating Error Drive Mode", "Unsupported Feature"}) {
        auto result = search("google", "x", "u");
        result.actionName = name;
        EXPECT_TRUE(launch(result).empty()) << name;
    }
}

TEST_F(WebLauncherTest, AFailedReadOfTheActionDataIsLoggedWithItsCode) {
    fake::platform().answer("vrp_response_data_get_action_data", -7);
    EXPECT_TRUE(launch(search("google", "x", "u")).empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vrp_response_data_get_action_data() failed: [-7]"));
}
