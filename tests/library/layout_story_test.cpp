// The whole story, by touches alone: first start, adjusting, saving, a restart, choosing, adjusting again,
// deleting, closing. At each point the stored settings, the presets file and the icons are what the touches
// so far should have made of them.
#include <gtest/gtest.h>

#include "tests/library/expected_grid.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;

constexpr const char* device = "iPhone 7";

// What the device is expected to hold.
struct Expected {
  Json settings;  // but for the count of pages
  std::vector<Json> records;
};

Json seededSettings() {
  return {{"qsBackgroundColor", 0},
          {"isDarkMode", false},
          {"dockIcons", 4},
          {"forceTouch", false},
          {"dockIconsEnabled", false},
          {"twoFinger", false},
          {"dock", false},
          {"columns", 4},
          {"rows", 5},
          {"enabled", true},
          {"icons", false},
          {"labels", false},
          {"page", false},
          {"preset", -4},
          {"quick", true},
          {"vertIconPadding", -13},
          {"horiIconPadding", 1},
          {"sideIconInset", 41},
          {"topIconInset", 65}};
}

// Runs a script on the device and gives the reports that it asks for, each written where "report" stands
// alone.
std::vector<Json> tell(const std::string& root, const std::string& script) {
  const sim::TemporaryRoot folder;
  std::string written;
  size_t count = 0;
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    if (line == "report") line += " " + folder.path().string() + "/" + std::to_string(count++) + ".json";
    written += line + "\n";
  }
  const test::Run run = test::runSimulator({"--device", device, "--root", root, "--script", "-"}, written);
  EXPECT_EQ(run.status, 0) << run.errors;
  std::vector<Json> reports;
  for (size_t i = 0; i < count; ++i) {
    std::ifstream file(folder.path() / (std::to_string(i) + ".json"));
    reports.push_back(Json::parse({std::istreambuf_iterator<char>(file), {}}));
  }
  return reports;
}

// The record that the settings select; null when they select none.
Json selected(const Expected& expected) {
  const long position = test::whole(expected.settings, "custom_preset");
  if (position < 0 || position >= static_cast<long>(expected.records.size())) return nullptr;
  return expected.records[static_cast<size_t>(position)];
}

void expectState(const Json& report, const Expected& expected, const char* when) {
  SCOPED_TRACE(when);
  EXPECT_TRUE(test::same(test::withoutPageCount(report["preferences"]), expected.settings))
      << report["preferences"] << "\nexpected " << expected.settings;
  EXPECT_TRUE(test::same(report["presets"], {{"configurations", expected.records}})) << report["presets"];
  static const Json system = test::stockReport({"--device", device});
  const test::ExpectedScreen screen(sim::findDevice(device), sim::Orientation::portrait);
  const test::ExpectedAnswers answers =
      test::ExpectedHome{system, expected.settings, selected(expected), screen}.answers();
  test::expectAnswers(report["pages"][0], answers);
  test::expectFrames(report["pages"][0], answers, test::iconViewSize(system));
}

TEST(Layouts, AreAdjustedSavedChosenAndDeletedByTouches) {
  const sim::TemporaryRoot root;
  Expected expected{seededSettings(), {}};

  const std::vector<Json> first = tell(root.path(), R"(report
swipe up
wait 1
report
increment "Top Inset" 5
wait 1
report
decrement "Horizontal Padding" 2
type "Side Inset" "30"
apply "Side Inset"
wait 4
report
tap "Add"
wait 1
enter "Mine"
choose "Add"
wait 1
report
increment "Top Inset" 3
wait 4
report
tap "close"
wait 1
report
)");
  ASSERT_EQ(first.size(), 7u);
  expectState(first[0], expected, "first start");
  expectState(first[1], expected, "panel open");
  EXPECT_EQ(first[1]["panel"]["rows"]["Top Inset"]["text"], "65.0");
  EXPECT_EQ(first[1]["panel"]["caption"], "No Saved Presets");
  expected.settings["custom_preset"] = -1;
  expected.settings["topIconInset"] = 70;
  expectState(first[2], expected, "first adjustment");
  EXPECT_EQ(first[2]["panel"]["alpha"], 0.5);
  expected.settings["horiIconPadding"] = -1;
  expected.settings["sideIconInset"] = 30;
  expectState(first[3], expected, "all adjusted");
  EXPECT_EQ(first[3]["panel"]["alpha"], 1);
  expected.records = {test::preset("Mine", 1, -13, -1, 30, 70)};
  expectState(first[4], expected, "saved");
  EXPECT_EQ(first[4]["panel"]["presets"], Json::array({"Mine"}));
  expected.settings["topIconInset"] = 73;
  expectState(first[5], expected, "adjusted once more");
  expectState(first[6], expected, "closed");
  EXPECT_EQ(first[6]["panel"], nullptr);

  const std::vector<Json> second = tell(root.path(), R"(report
swipe up
wait 1
page 1
report
pick 0
tap "Select"
wait 2
report
choose "Okay"
wait 1
report
swipe up
wait 1
decrement "Vertical Padding" 2
wait 4
report
page 1
tap "Delete"
wait 1
report
tap "close"
wait 1
report
)");
  ASSERT_EQ(second.size(), 7u);
  expectState(second[0], expected, "restarted");
  expectState(second[1], expected, "presets page");
  EXPECT_EQ(second[1]["panel"]["presets"], Json::array({"Mine"}));
  expected.settings["custom_preset"] = 0;
  expectState(second[2], expected, "chosen");
  EXPECT_EQ(second[2]["panel"], nullptr);
  EXPECT_EQ(second[2]["alert"]["title"], "Tilo 3");
  expected.settings["showed-setup"] = true;
  expectState(second[3], expected, "notice acknowledged");
  EXPECT_EQ(second[3]["alert"], nullptr);
  expected.settings["custom_preset"] = -1;
  expected.settings["vertIconPadding"] = -15;
  expectState(second[4], expected, "adjusted again");
  expected.records.clear();
  expectState(second[5], expected, "deleted");
  EXPECT_EQ(second[5]["panel"]["caption"], "No Saved Presets");
  expectState(second[6], expected, "closed again");
  EXPECT_EQ(second[6]["panel"], nullptr);
}

}  // namespace
