// The specifier file, beside what the library reads and writes.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "platform/uikit/color.hpp"
#include "simulator/app/report_values.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;

std::string source(const char* file) {
  std::ifstream stream(std::string(SOURCES) + "/" + file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

Json specifiers() {
  bridge::Pool pool;
  return sim::plain(NSDictionary::dictionaryWithContentsOfFile(
      NSString::stringWithUTF8String((std::string(SOURCES) + "/preferences/bundle/Root.plist").c_str())));
}

std::set<std::string> keysIn(const Json& items) {
  std::set<std::string> keys;
  for (const Json& item : items)
    if (item.contains("key")) EXPECT_TRUE(keys.insert(item["key"].get<std::string>()).second) << item;
  return keys;
}

Json itemOf(const Json& file, const std::string& key) {
  for (const Json& item : file["items"])
    if (item.value("key") == Json(key)) return item;
  return {};
}

// The keys of the preference domain that the library names, which stand first in its list.
std::set<std::string> keysOfLibrary() {
  std::string text = source("settings/store/keys.hpp");
  text = text.substr(0, text.find("// The presets file"));
  std::set<std::string> keys;
  const std::regex key("= key<\"([^\"]+)\"");
  for (std::sregex_iterator found(text.begin(), text.end(), key), end; found != end; ++found)
    keys.insert((*found)[1]);
  return keys;
}

TEST(SpecifierFile, HasEveryKeyOfTheLibraryForAPersonOrNot) {
  test::Home home({"--stock"});
  const Json file = specifiers();
  std::set<std::string> all = keysIn(file["items"]), unseen = keysIn(file["unseen"]);
  EXPECT_EQ(unseen, (std::set<std::string>{"numOfPages", "preset", "showed-setup"}));
  for (const std::string& key : unseen) EXPECT_TRUE(all.insert(key).second) << key;
  EXPECT_EQ(all, keysOfLibrary());
  EXPECT_EQ(all.size(), 23u);
}

TEST(SpecifierFile, HasTheDefaultsOfTheFirstStart) {
  test::Home home;
  Json preferences = home.report()["preferences"];
  for (const Json& item : specifiers()["items"]) {
    if (!item.contains("default")) continue;
    const std::string key = item["key"];
    EXPECT_EQ(item["default"], preferences.at(key)) << key;
    EXPECT_EQ(item["kind"] == Json("boolean"), preferences.at(key).isBoolean()) << key;
    preferences.erase(key);
  }
  EXPECT_EQ(preferences.sorted(), (Json::object({{"numOfPages", 1}, {"preset", -4.0}})));
  for (const Json& item : specifiers()["unseen"])
    if (item.contains("default")) EXPECT_EQ(item["default"], preferences.at(item["key"].get<std::string>()));
}

TEST(SpecifierFile, AnnouncesByTitleWhatTheScrollViewListensFor) {
  test::Home home({"--stock"});
  const std::string hooks = source("hooks/scroll_view.cpp");
  const std::regex heard("isEqualToString\\(\"([^\"]+)\"_ns\\)");
  std::set<std::string> titles, announced;
  for (std::sregex_iterator found(hooks.begin(), hooks.end(), heard), end; found != end; ++found)
    titles.insert((*found)[1]);
  for (const Json& item : specifiers()["items"])
    if (item.contains("announced")) announced.insert(item["label"].get<std::string>());
  EXPECT_EQ(announced, titles);
  EXPECT_EQ(titles.size(), 3u);
}

struct ColorManager : bridge::Face<"RQColorManager", NSObject> {
  static constexpr bridge::ClassMethod<"RQColorManager", "colors", NSArray()> colors{};
};

TEST(SpecifierFile, HasTheColorsOfThePanel) {
  test::Home home;
  bridge::Pool pool;
  const NSArray palette = ColorManager::colors();
  const Json item = itemOf(specifiers(), "qsBackgroundColor");
  ASSERT_EQ(item["validColors"].size(), palette.count());
  EXPECT_EQ(item["validTitles"].size(), palette.count());
  EXPECT_EQ(item["validValues"].size(), palette.count());
  for (NSUInteger i = 0; i < palette.count(); ++i) {
    CGFloat part[4] = {};
    bridge::as<UIColor>(palette.objectAtIndex(i))
        .getRed_green_blue_alpha(&part[0], &part[1], &part[2], &part[3]);
    char written[8];
    std::snprintf(written, sizeof written, "#%02X%02X%02X", static_cast<unsigned>(part[0] * 255 + 0.5),
                  static_cast<unsigned>(part[1] * 255 + 0.5), static_cast<unsigned>(part[2] * 255 + 0.5));
    EXPECT_EQ(item["validColors"][i], Json(written));
    EXPECT_EQ(item["validValues"][i], i);
  }
}

TEST(SpecifierFile, HasARangeForEveryNumber) {
  test::Home home({"--stock"});
  const Json file = specifiers();
  for (const char* part : {"items", "unseen"})
    for (const Json& item : file[part]) {
      if (item.value("kind") != Json("float")) continue;
      EXPECT_LT(item.at("min"), item.at("max")) << item;
      if (!item.contains("default")) continue;
      EXPECT_LE(item["min"], item["default"]) << item;
      EXPECT_GE(item["max"], item["default"]) << item;
    }
}

TEST(SpecifierFile, SaysWhenEachSettingTakesEffect) {
  test::Home home({"--stock"});
  std::string footer;
  for (const Json& item : specifiers()["items"]) {
    if (item["cell"] == Json("PSGroupCell"))
      footer = item.contains("footerText") ? item["footerText"].get<std::string>() : "";
    if (item.contains("key"))
      EXPECT_TRUE(footer.find("at once") != footer.npos || footer.find("At once") != footer.npos ||
                  footer.find("fter a respring") != footer.npos)
          << item;
  }
}

// By a finger, with what comes of it.
TEST(SpecifierFile, HasATestForEveryTitle) {
  test::Home home({"--stock"});
  const std::string tests =
      source("tests/preferences/pane_titles_test.cpp") + source("tests/preferences/pane_buttons_test.cpp");
  int titles = 0;
  for (const Json& item : specifiers()["items"]) {
    if (item["cell"] == Json("PSGroupCell")) continue;
    const std::string title = "(\"" + item["label"].get<std::string>() + "\"";
    const std::string second = "(home, \"" + item["label"].get<std::string>() + "\"";
    EXPECT_TRUE(tests.find(title) != tests.npos || tests.find(second) != tests.npos) << title;
    ++titles;
  }
  EXPECT_EQ(titles, 26);
}

}  // namespace
