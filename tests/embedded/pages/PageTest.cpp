// Pages of small templates; how they look in a browser is tested there.

#include "embedded/pages/Page.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "embedded/StageDocument.h"
#include "embedded/pages/PageTemplate.h"

namespace embedded {
namespace {

std::string pageOf(std::string_view pageTemplate, const PageContent& content, std::string_view glb = "") {
  std::ostringstream out;
  writePage(pageTemplate, content, glb, out);
  return out.str();
}

PageContent titled(const std::string& title) {
  PageContent content;
  content.title = title;
  return content;
}

nlohmann::json jsonOf(const PageContent& content) { return nlohmann::json::parse(pageOf("{{content}}", content)); }

TEST(Page, has_everything_in_its_place) {
  EXPECT_EQ(pageOf("<{{title}}|{{title}}>{{model}}.", titled("T"), "foo"), "<T|T>Zm9v.");
  EXPECT_EQ(pageOf("a{{b}}{{{title}}}{", titled("T")), "a{{b}}{T}{") << "what is no mark stays";
  EXPECT_EQ(pageOf("", titled("T")), "");
  EXPECT_EQ(pageOf("{{title}}{{model}}", titled("{{model}}"), "foo"), "{{model}}Zm9v") << "a title is no template";
}

TEST(Page, takes_no_title_as_html) {
  const struct {
    std::string title;
    std::string text;
  } kRows[] = {
      {"</title><script>", "&lt;/title&gt;&lt;script&gt;"},
      {"a & \"b\" 'c'", "a &amp; &quot;b&quot; &#39;c&#39;"},
      {"a\nb\tc", "a b c"},
      {"\xC3\xA4 \xE4", "\xC3\xA4 \xEF\xBF\xBD"},
  };
  for (const auto& row : kRows) EXPECT_EQ(pageOf("{{title}}", titled(row.title)), row.text);
}

TEST(Page, says_what_the_model_is) {
  PageContent content;
  content.file = "a </script><!-- \"b\" \xE4";
  content.triangleCount = 12;
  content.messages = {"one\ntwo", "</SCRIPT>"};
  EXPECT_EQ(pageOf("{{content}}", content).find('<'), std::string::npos) << "what ends a script element";
  const nlohmann::json json = jsonOf(content);
  EXPECT_EQ(json["file"], "a </script><!-- \"b\" \xEF\xBF\xBD");
  EXPECT_EQ(json["triangles"], 12);
  EXPECT_EQ(json["messages"], (std::vector<std::string>{"one\ntwo", "</SCRIPT>"}));
  EXPECT_EQ(json["background"], (std::vector<int>{70, 80, 96}));
  EXPECT_TRUE(json["views"].empty());
}

// In the page y is up, and z comes towards who stands in front.
TEST(Page, has_the_usual_views_first) {
  PageContent content;
  content.views = usualViews();
  const nlohmann::json views = jsonOf(content)["views"];
  std::string names;
  for (const auto& view : views) names += view["name"].get<std::string>() + " ";
  EXPECT_EQ(names, "Overview Front Back Left Right Top Bottom Iso ");
  const nlohmann::json& front = views[1];
  const std::vector<double> axes = front["axes"];
  const std::vector<double> expected = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(axes[i], expected[i], 1e-12) << i;
  EXPECT_TRUE(front["eye"].is_null());
  EXPECT_EQ(front["parallel"], false);
  EXPECT_NEAR(front["fov"].get<double>(), 0.5235987755982988, 1e-12);
}

TEST(Page, has_the_views_that_the_application_saved) {
  StageError error;
  const auto stager = readStageDocument(
      R"({"assembly": null, "views": [{"name": "A", "perspective": true, "fov": 0.5,
          "frame": [1,0,0,0, 0,0,1,0, 0,-1,0,0, 1,-10,2,1]}, null, {"name": "B", "perspective": false,
          "frame": [1,0,0,0, 0,1,0,0, 0,0,1,0, 0,0,9,1]}]})",
      "", error);
  ASSERT_NE(stager, nullptr) << error.text;
  PageContent content;
  content.views = savedPageViews(*stager);
  const nlohmann::json views = jsonOf(content)["views"];
  ASSERT_EQ(views.size(), 2U);
  EXPECT_EQ(views[0]["name"], "A");
  EXPECT_EQ(views[0]["eye"], (std::vector<double>{1, 2, 10}));
  EXPECT_NEAR(views[0]["fov"].get<double>(), 0.5, 1e-6);
  EXPECT_EQ(views[1]["name"], "B");
  EXPECT_TRUE(views[1]["eye"].is_null());
  EXPECT_EQ(views[1]["parallel"], true);
}

TEST(Page, asks_nobody_for_anything) {
  const std::string page(pageTemplate());
  if (page.empty()) GTEST_SKIP() << "built without a viewer";
  for (const char* element : {"<script src", "<link", "<img", "<iframe", "<base"}) {
    EXPECT_EQ(page.find(element), std::string::npos) << element;
  }
  EXPECT_NE(page.find("default-src 'none'"), std::string::npos);
  EXPECT_NE(page.find("three.js authors"), std::string::npos) << "the licence goes along";
}

}  // namespace
}  // namespace embedded
