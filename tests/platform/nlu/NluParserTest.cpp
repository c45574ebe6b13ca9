// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "orvane_da_parser.h"

namespace {

struct Destroy {
    void operator()(vrp_response_data_s* response) const noexcept { vrp_response_data_destroy(response); }
};
using Response = std::unique_ptr<vrp_response_data_s, Destroy>;

Response parse(const std::string& json) {
    return Response(vrp_response_data_parse(json.c_str()));
}

// "<null>" if there is no text. Checks that the code matches.
template <typename Getter, typename Owner>
std::string read(Getter getter, Owner* owner) {
    char* text = nullptr;
    const int code = getter(owner, &text);
    const std::unique_ptr<char, decltype(&std::free)> owned(text, &std::free);
    EXPECT_EQ(code, text ? VRP_ERROR_NONE : VRP_ERROR_NO_DATA);
    return text ? text : "<null>";
}

constexpr char kSearch[] = R"({
    "agent": "WebSearch", "action_type": "Action", "action_name": "Web Search",
    "action_data": {"web_search": {"provider": "google", "search_term": "r\u00f6sti", "url": "https://example.org/"}}})";

TEST(AnNluResult, ContainsAnAgentATypeAndAName) {
    const Response response = parse(kSearch);
    ASSERT_TRUE(response);
    EXPECT_EQ(read(vrp_response_data_get_agent, response.get()), "WebSearch");
    EXPECT_EQ(read(vrp_response_data_get_action_type, response.get()), "Action");
    EXPECT_EQ(read(vrp_response_data_get_action_name, response.get()), "Web Search");
}

TEST(AnNluResult, ContainsTheDataOfASearch) {
    const Response response = parse(kSearch);
    vrp_action_data_s* data = nullptr;
    vrp_web_search_data_s* search = nullptr;
    ASSERT_EQ(vrp_response_data_get_action_data(response.get(), &data), VRP_ERROR_NONE);
    ASSERT_EQ(vrp_web_search_action_data_get_web_search_data(data, &search), VRP_ERROR_NONE);
    EXPECT_EQ(read(vrp_web_search_data_get_provider, search), "google");
    EXPECT_EQ(read(vrp_web_search_data_get_search_term, search), "r\xc3\xb6sti");
    EXPECT_EQ(read(vrp_web_search_data_get_url, search), "https://example.org/");
}

TEST(AnNluResult, ContainsThePackagesOfApplicationsAndRecipes) {
    const Response response =
        parse(R"({"action_data": {"launch_apps": {"package": "a"}, "recipe": {"package": "b"}}})");
    vrp_action_data_s* data = nullptr;
    vrp_launch_apps_data_s* launch = nullptr;
    vrp_recipe_data_s* recipe = nullptr;
    ASSERT_EQ(vrp_response_data_get_action_data(response.get(), &data), VRP_ERROR_NONE);
    ASSERT_EQ(vrp_launch_apps_action_data_get_launch_apps_data(data, &launch), VRP_ERROR_NONE);
    ASSERT_EQ(vrp_recipe_action_data_get_recipe_data(data, &recipe), VRP_ERROR_NONE);
    EXPECT_EQ(read(vrp_launch_apps_data_get_package, launch), "a");
    EXPECT_EQ(read(vrp_recipe_data_get_package, recipe), "b");
}

TEST(AnNluResult, TreatsFieldsOfTheWrongTypeAsMissing) {
    const Response response = parse(
        R"({"agent": 7, "action_type": null, "action_name": ["x"],
            "action_data": {"launch_apps": [], "web_search": "x", "recipe": {"package": {}}}})");
    ASSERT_TRUE(response);
    EXPECT_EQ(read(vrp_response_data_get_agent, response.get()), "<null>");
    EXPECT_EQ(read(vrp_response_data_get_action_type, response.get()), "<null>");
    EXPECT_EQ(read(vrp_response_data_get_action_name, response.get()), "<null>");
    vrp_action_data_s* data = nullptr;
    ASSERT_EQ(vrp_response_data_get_action_data(response.get(), &data), VRP_ERROR_NONE);
    vrp_launch_apps_data_s* launch = nullptr;
    EXPECT_EQ(vrp_launch_apps_action_data_get_launch_apps_data(data, &launch), VRP_ERROR_NO_DATA);
    EXPECT_EQ(launch, nullptr);
    vrp_web_search_data_s* search = nullptr;
    EXPECT_EQ(vrp_web_search_action_data_get_web_search_data(data, &search), VRP_ERROR_NO_DATA);
    vrp_recipe_data_s* recipe = nullptr;
    ASSERT_EQ(vrp_recipe_action_data_get_recipe_data(data, &recipe), VRP_ERROR_NONE);
    EXPECT_EQ(read(vrp_recipe_data_get_package, recipe), "<null>");
}

TEST(AnNluResult, WithoutActionDataReturnsNoData) {
    const Response response = parse("{}");
    vrp_action_data_s* data = nullptr;
    EXPECT_EQ(vrp_response_data_get_action_data(response.get(), &data), VRP_ERROR_NO_DATA);
    EXPECT_EQ(data, nullptr);
}

TEST(TextThatIsNotAnNluResult, IsRefused) {
    for (const char* text :
         {"", "{", "null", "[]", "\"text\"", "{\"a\": \xff}", "{} {}", "{\"agent\": \"\xc3\x28\"}"}) {
        EXPECT_FALSE(parse(text)) << text;
    }
    EXPECT_EQ(vrp_response_data_parse(nullptr), nullptr);
}

TEST(TextThatIsNotAnNluResult, MayBeNestedDeeply) {
    EXPECT_FALSE(parse(std::string(500000, '[')));
    std::string deep;
    for (int i = 0; i < 60000; ++i) {
        deep += "{\"a\":";
    }
    EXPECT_FALSE(parse(deep));
    EXPECT_FALSE(parse("{\"agent\":" + std::string(10000, '[') + std::string(10000, ']') + "}"));
}

TEST(TextThatIsNotAnNluResult, MayBeHuge) {
    EXPECT_FALSE(parse("{\"agent\": \"" + std::string(5000000, 'x') + "\"}"));
}

TEST(AnNluGetter, RefusesMissingArguments) {
    const Response response = parse(kSearch);
    char* text = nullptr;
    EXPECT_EQ(vrp_response_data_get_agent(nullptr, &text), VRP_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vrp_response_data_get_agent(response.get(), nullptr), VRP_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vrp_response_data_get_action_data(response.get(), nullptr), VRP_ERROR_INVALID_PARAMETER);
    vrp_recipe_data_s* recipe = nullptr;
    EXPECT_EQ(vrp_recipe_action_data_get_recipe_data(nullptr, &recipe), VRP_ERROR_INVALID_PARAMETER);
    vrp_response_data_destroy(nullptr);
}

}  // namespace
