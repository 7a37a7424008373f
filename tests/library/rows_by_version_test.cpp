// Which rows of the method table take effect on which system, as the devices' SpringBoard has the methods;
// that the page about devices says so; and that what hangs on a row whose method a system lacks works there
// all the same.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/library/grid_home.hpp"
#include "tests/support/files.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;
using test::Home;

const std::vector<std::string> versions{"9.2", "9.3", "10.1", "10.2", "11.1", "12.1"};

bool before(const std::string& version, int major) { return std::stoi(version) < major; }

std::vector<std::string> options(const std::string& version, const std::string& device,
                                 const std::vector<std::string>& settings = {}) {
  std::vector<std::string> all{"--springboard", "real", "--device", device, "--ios", version};
  for (const std::string& setting : settings) all.insert(all.end(), {"--set", setting});
  return all;
}

Json rowsOn(const std::string& version, const std::string& device) {
  std::vector<std::string> all = options(version, device);
  all.insert(all.end(), {"--report", "-"});
  return Json::parse(test::runSimulator(all).output)["hooks"]["rows"];
}

// What is not "replaced" or "added" under the row's own name: nothing where the method is missing, else what
// stands in for it.
using Exceptions = std::map<std::string, std::string>;
Exceptions exceptionsOf(const Json& rows) {
  Exceptions found;
  for (const Json& row : rows) {
    std::string name = row["class"].get<std::string>() + " " + row["method"].get<std::string>();
    if (row["outcome"] == "method missing") found[name] = "";
    if (row["outcome"] == "successor") found[name] = row["successor"].get<std::string>();
  }
  return found;
}

class RowsOn : public testing::TestWithParam<std::string> {};

TEST_P(RowsOn, TakeEffectWhereSpringBoardHasTheirMethods) {
  Exceptions expected{
      {"SBIconLabelImageParameters -shadowColor", ""},
      {"SBIconListPageControl -_setIndicatorImage:toEnabled:", ""},
      {"SBIconController -didRotateFromInterfaceOrientation:", "-_didRotateFromInterfaceOrientation:"}};
  std::string& launch = expected["SBUIController -activateApplicationAnimated:"];
  if (before(GetParam(), 11)) {
    launch = "-activateApplication:, -activateApplication:fromIcon:location:";
    expected["SBDockIconListView -effectiveSpacing"] = "";
  } else {
    launch = "-activateApplication:fromIcon:location:activationSettings:actions:";
    expected["SBDockIconListView -iconAtPoint:index:proposedOrder:grabbedIcon:"] = "";
    expected["SBIconController -init"] = "-initWithNibName:bundle:";
  }
  for (const char* device : {"iPhone 6", "iPad Air 2"}) {
    Json rows = rowsOn(GetParam(), device);
    EXPECT_EQ(rows.size(), 46) << device;
    EXPECT_EQ(exceptionsOf(rows), expected) << device;
    for (const Json& row : rows)
      for (const char* other : {"class missing", "refused"}) EXPECT_NE(row["outcome"], other) << row.dump();
  }
}

TEST_P(RowsOn, ThatFindNothingAreToldTheSystemLogInOneLine) {
  Home home(options(GetParam(), "iPhone 6"));
  std::string missing;
  for (const auto& [name, successor] : exceptionsOf(home.report()["hooks"]["rows"]))
    if (successor.empty()) missing += (missing.empty() ? "" : ", ") + name;
  int lines = 0;
  for (const Json& line : home.report()["console"]) {
    std::string text = line.get<std::string>();
    if (text.find("MethodTable") == text.npos) continue;
    ++lines;
    EXPECT_TRUE(text.find("not in this system: ") != text.npos) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), ','), std::count(missing.begin(), missing.end(), ','));
  }
  EXPECT_EQ(lines, 1);
}

const std::vector<std::string> panelWanted{"enabled=YES",       "quick=YES",          "custom_preset=-1",
                                           "sideIconInset=27",  "horiIconPadding=27", "topIconInset=30",
                                           "vertIconPadding=14"};

// The panel is open, slides out when an application is launched, and takes as long as when it is cancelled
// once.
void expectLaunchClosesThePanel(Home& home) {
  home.step("swipe up");
  home.step("wait 1");
  ASSERT_FALSE(home.report()["panel"].isNull());
  home.step("launch \"Calendar\"");
  home.step("wait 0.3");
  EXPECT_FALSE(home.report()["panel"].isNull());
  EXPECT_EQ(home.report()["application"], "Calendar");
  home.step("wait 0.4");
  EXPECT_TRUE(home.report()["panel"].isNull());
}

TEST_P(RowsOn, CloseThePanelAtALaunch) {
  Home home(options(GetParam(), "iPhone 6", panelWanted));
  expectLaunchClosesThePanel(home);
}

TEST_P(RowsOn, CloseThePanelAtALaunchByTheOtherMessage) {
  Home home(options(GetParam(), "iPhone 6", panelWanted));
  sim::springboard::useLaunchMessage(sim::springboard::LaunchMessage::plain);
  expectLaunchClosesThePanel(home);
}

TEST_P(RowsOn, MeasureTheScreen) {
  Home home(options(GetParam(), "iPad Air 2"));
  EXPECT_EQ(test::libraryVariable<double>("tilo::screenWidth"), 768);
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorH"), 2048.0 / 568.0);
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorW"), 1536.0 / 320.0);
}

TEST_P(RowsOn, RescaleATabletThatTurnsOnceEachTime) {
  Home home(options(GetParam(), "iPad Air 2", {"preset=0"}));
  test::libraryVariable<int>("tilo::numOfPages") = 2;
  home.step("rotate landscape");
  home.step("wait 1");
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorH"), 1536.0 / 688.0);
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorW"), 2048.0 / 320.0);
  EXPECT_EQ(home.report()["relayouts"].size(), 2);
  home.step("rotate portrait");
  home.step("wait 1");
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorW"), 1536.0 / 320.0);
  EXPECT_EQ(home.report()["relayouts"].size(), 4);
}

// What SpringBoard's own method does with it, no class dump tells.
void keptToItself(SBIconController, NSInteger) {}

TEST_P(RowsOn, RescaleATabletWhoseSpringBoardHandsTheTurnOnToNobody) {
  Home home(options(GetParam(), "iPad Air 2", {"preset=0"}), [](sim::Simulation&) {
    test::standIn<SBIconController, &SBIconController::_didRotateFromInterfaceOrientation, keptToItself>();
  });
  home.step("rotate landscape");
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorW"), 2048.0 / 320.0);
}

TEST_P(RowsOn, LeaveATabletThatTurnsBehindTheLockScreenAsItIs) {
  Home home(options(GetParam(), "iPad Air 2", {"preset=0"}));
  home.step("lock");
  home.step("rotate landscape");
  home.step("wait 1");
  EXPECT_EQ(test::libraryVariable<double>("tilo::iPadAdjustFactorW"), 1536.0 / 320.0);
  EXPECT_EQ(home.report()["relayouts"].size(), 0);
}

TEST_P(RowsOn, LetADockHoldThree) {
  Home home(options(GetParam(), "iPhone 6", {"dockIconsEnabled=YES", "dockIcons=3"}));
  EXPECT_EQ(home.report()["dock"]["maxIcons"], 3);
  EXPECT_EQ(home.report()["dock"]["icons"].size(), 3);
}

TEST_P(RowsOn, OpenThePanelFromAScrollViewThatIsMadeEitherWay) {
  Home home(options(GetParam(), "iPhone 6", panelWanted), [](sim::Simulation&) {
    using enum sim::springboard::ScrollViewInitialiser;
    sim::springboard::useScrollViewInitialiser(initWithFrame);
  });
  home.step("swipe up");
  EXPECT_FALSE(home.report()["panel"].isNull());
}

INSTANTIATE_TEST_SUITE_P(Systems, RowsOn, testing::ValuesIn(versions));

// The table of the page, a line for each row that is not the same everywhere, the others counted.
std::string cell(const Json& row) {
  if (row["outcome"] == "method missing") return "–";
  if (row["outcome"] != "successor") return "yes";
  std::string text = row["successor"].get<std::string>();
  for (size_t at; (at = text.find(", -")) != text.npos;) text.replace(at, 2, "` and `");
  return "`" + text + "`";
}

std::string tableOfRows() {
  std::vector<Json> columns;
  for (const std::string& version : versions) columns.push_back(rowsOn(version, "iPhone 6"));
  std::string text = "| class | method |";
  for (const std::string& version : versions) text += " " + version + " |";
  text += "\n|---|---|---|---|---|---|---|---|\n";
  for (size_t i = 0; i < columns[0].size(); ++i) {
    text += fmt::format("| `{}` | `{}` |", columns[0][i]["class"].get<std::string>(),
                        columns[0][i]["method"].get<std::string>());
    for (Json& rows : columns) text += " " + cell(rows[i]) + " |";
    text += "\n";
  }
  return text;
}

TEST(PageAboutDevices, SaysWhichRowsTakeEffectWhere) {
  const std::string page = test::contentsOf(DEVICE_PAGE), table = tableOfRows();
  EXPECT_TRUE(page.find(table) != page.npos) << "docs/device.md should say:\n" << table;
}

// The first column of the table in the source: from which system on, up to which, or none.
std::string systemsOf(const std::vector<bool>& takesEffect) {
  if (std::ranges::count(takesEffect, true) == 0) return "none";
  if (!takesEffect.back()) return "to 10";
  return takesEffect.front() ? "9.2" : "11";
}

TEST(MethodTableSource, SaysFromWhichSystemOnARowTakesEffect) {
  std::vector<std::string> written, expected;
  std::istringstream source(test::contentsOf(METHOD_TABLE));
  for (std::string line; std::getline(source, line);)
    if (line.find("*/ replace<") != line.npos || line.find("*/ add<") != line.npos) {
      std::string word = line.substr(7, line.find(" */") - 7);
      written.push_back(word.substr(0, word.find_last_not_of(' ') + 1));
    }
  std::vector<Json> columns;
  for (const std::string& version : versions) columns.push_back(rowsOn(version, "iPhone 6"));
  for (size_t i = 0; i < columns[0].size(); ++i) {
    std::vector<bool> takesEffect;
    for (Json& rows : columns)
      takesEffect.push_back(rows[i]["outcome"] == "replaced" || rows[i]["outcome"] == "added");
    expected.push_back(systemsOf(takesEffect));
  }
  EXPECT_EQ(written, expected);
}

}  // namespace
