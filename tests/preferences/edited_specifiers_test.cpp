// A specifier file that somebody edited: what is no setting any more is left out, and the rest goes on.
#include <gtest/gtest.h>

#include "simulator/app/report_values.hpp"
#include "simulator/product/settings_tool/pane.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;
using sim::product::TiloSettings;

struct Edited {
  const char* name;
  std::string item;  // but for its key and label
};
void PrintTo(const Edited& edited, std::ostream* out) { *out << edited.name; }

// The file in force, with the edited item between two that are sound.
void use(const std::string& edited) {
  const std::string range = "<key>min</key><real>1</real><key>max</key><real>15</real>";
  const auto item = [](const std::string& key, const std::string& more) {
    return "<dict><key>key</key><string>" + key + "</string><key>label</key><string>A row</string>" + more +
           "</dict>";
  };
  const std::string file = test::temporaryFile(
      "Root.plist", "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>items</key><array>" +
                        item("rows", range) + item("edited", edited) + item("columns", range) +
                        "</array><key>unseen</key><array>" + item("hidden", edited) +
                        "</array></dict></plist>");
  sim::product::loadPane();
  TiloSettings::useSpecifierFile(NSString::stringWithUTF8String(file.c_str()));
}

std::vector<std::string> keys() {
  std::vector<std::string> all;
  for (const Json& item : sim::plain(TiloSettings::items())) all.push_back(item["key"]);
  return all;
}

class AnEditedItem : public testing::TestWithParam<Edited> {};

TEST_P(AnEditedItem, IsLeftOutAndTheOthersGoOn) {
  test::Home home({"--set", "rows=7", "--set", "edited=3", "--set", "hidden=3"});
  const bridge::Pool pool;
  use(GetParam().item);
  EXPECT_EQ(keys(), (std::vector<std::string>{"rows", "columns"}));
  EXPECT_FALSE(TiloSettings::itemNamed("edited"_ns));
  const NSDictionary rows = TiloSettings::itemNamed("rows"_ns);
  EXPECT_EQ(TiloSettings::nearestTo_stored(rows, NSNumber::numberWithInt(20)).intValue(), 15);
  EXPECT_FALSE(TiloSettings::backUpTo("/var/mobile/Documents/all.json"_ns));
  EXPECT_EQ(Json::parse(home.contents("/var/mobile/Documents/all.json"))["settings"], (Json{{"rows", 7}}));
  EXPECT_TRUE(TiloSettings::reset());
  EXPECT_FALSE(home.report()["preferences"].contains("rows"));
  EXPECT_EQ(home.report()["preferences"]["edited"], 3);
}

INSTANTIATE_TEST_SUITE_P(
    Whose, AnEditedItem,
    testing::Values(
        Edited{"RangeIsNotThere", ""},
        Edited{"LeastIsATable", "<key>min</key><dict/><key>max</key><real>1</real>"},
        Edited{"MostIsAText", "<key>min</key><real>1</real><key>max</key><string>9</string>"},
        Edited{"LeastIsMoreThanItsMost", "<key>min</key><real>9</real><key>max</key><real>1</real>"},
        Edited{"LeastIsNoNumber", "<key>min</key><real>nan</real><key>max</key><real>1</real>"},
        Edited{"ChoicesAreNone", "<key>validValues</key><array/><key>validTitles</key><array/>"},
        Edited{"ChoicesAreNoList", "<key>validValues</key><integer>1</integer><key>min</key><real>1</real>"},
        Edited{"TitlesAreFewer", "<key>validValues</key><array><integer>1</integer></array>"},
        Edited{"TitlesAreNumbers",
               "<key>validValues</key><array><integer>1</integer></array>"
               "<key>validTitles</key><array><integer>1</integer></array>"},
        Edited{"ValuesAreTexts",
               "<key>validValues</key><array><string>1</string></array>"
               "<key>validTitles</key><array><string>One</string></array>"},
        Edited{"DefaultIsOfAnotherKind",
               "<key>kind</key><string>boolean</string><key>default</key><string>x</string>"},
        Edited{"DefaultIsBeyondItsRange",
               "<key>min</key><real>1</real><key>max</key><real>2</real>"
               "<key>default</key><real>3</real>"}),
    [](const auto& test) { return test.param.name; });

TEST(AnEditedItem, WhoseWholenessIsAListIsNotWhole) {
  const test::Home home;
  const bridge::Pool pool;
  use("<key>min</key><real>1</real><key>max</key><real>5</real><key>whole</key><array/>");
  EXPECT_EQ(
      TiloSettings::nearestTo_stored(TiloSettings::itemNamed("edited"_ns), NSNumber::numberWithDouble(2.5))
          .doubleValue(),
      2.5);
}

TEST(AnEditedItem, WithoutATitleIsLeftOut) {
  const test::Home home;
  const bridge::Pool pool;
  use("<key>label</key><real>1</real><key>kind</key><string>boolean</string>");
  EXPECT_EQ(keys(), (std::vector<std::string>{"rows", "columns"}));
}

}  // namespace
