// The page's buttons: layouts that travel, backups, the way back to the defaults, the respring.
#include "platform/uikit/pasteboard.hpp"
#include "tests/preferences/pane_home.hpp"

namespace {

using sim::Json;
using test::PaneHome;

std::string wide() {
  return test::temporaryFile("wide.json",
                             test::presetsDocument(Json::array({test::preset("Wide", 1, 12, 11, 13, 14)})));
}

std::string message(PaneHome& home) {
  const Json alert = home.report()["alert"];
  return alert.isNull() ? "(none)" : alert["message"].get<std::string>();
}

void answer(PaneHome& home, const char* button) {
  home.step(std::string("choose \"") + button + "\"");
  home.step("wait 0.5");
}

void press(PaneHome& home, const char* title) {
  home.open(title);
  home.step("wait 0.5");
}

TEST(PaneButton, CopiesALayoutToThePasteboard) {
  PaneHome home({"--presets", wide()});
  home.open("Copy Layout");
  home.tap("Wide");
  EXPECT_EQ(message(home), "Copied: tilo:1:11,12,13,14:Wide");
  bridge::Pool pool;
  EXPECT_STREQ(UIPasteboard::generalPasteboard().string().UTF8String(), "tilo:1:11,12,13,14:Wide");
}

TEST(PaneButton, PastesALayoutThatCanBeChosenThen) {
  PaneHome home;
  {
    bridge::Pool pool;
    UIPasteboard::generalPasteboard().string.set("tilo:1:1,2,3,4:Narrow"_ns);
  }
  press(home, "Paste Layout");
  EXPECT_EQ(message(home), "Added: Narrow");
  answer(home, "OK");
  home.choose("Layout", "Narrow");
  EXPECT_EQ(home.stored("custom_preset").dump(), "0");
}

TEST(PaneButton, SaysThatRubbishIsNoLayout) {
  PaneHome home({"--presets", wide()});
  const Json before = home.report()["presets"];
  press(home, "Paste Layout");
  EXPECT_EQ(message(home), "There is no text to paste.");
  answer(home, "OK");
  {
    bridge::Pool pool;
    UIPasteboard::generalPasteboard().string.set("a shopping list"_ns);
  }
  press(home, "Paste Layout");
  EXPECT_EQ(message(home), "Nothing was added: this is no layout.");
  EXPECT_EQ(home.report()["presets"], before);
}

TEST(PaneButton, BacksUpAndRestoresWhatWasThen) {
  PaneHome home({"--presets", wide(), "--set", "rows=7", "--set", "square=YES"});
  press(home, "Back Up");
  const std::string name = "Tilo 2018-06-05 09.41.";
  EXPECT_EQ(message(home).substr(0, 34), "Backed up: " + name + message(home).substr(33, 1)) << message(home);
  const std::string file = message(home).substr(11);
  answer(home, "OK");
  const std::string presets = home.contents(test::presetsPath);
  home.count("Rows", 3);
  home.toggle("Square Icons");
  home.open("Restore");
  home.tap(file);
  EXPECT_EQ(message(home), "Replace all settings and layouts by those of " + file + "?");
  answer(home, "Cancel");
  EXPECT_EQ(home.stored("rows"), 3.0);
  home.tap(file);
  answer(home, "Restore");
  EXPECT_EQ(message(home), "Restored. Some settings take effect after a respring.");
  EXPECT_EQ(home.stored("rows"), 7.0);
  EXPECT_EQ(home.stored("square"), Json(true));
  EXPECT_EQ(home.contents(test::presetsPath), presets);
}

TEST(PaneButton, ResetsAfterAQuestionAndKeepsLayouts) {
  PaneHome home({"--presets", wide(), "--set", "rows=7", "--set", "square=YES"});
  press(home, "Reset to Defaults");
  answer(home, "Cancel");
  EXPECT_EQ(home.stored("rows"), 7);
  press(home, "Reset to Defaults");
  answer(home, "Reset");
  EXPECT_EQ(message(home), "Set as at first. Some settings take effect after a respring.");
  EXPECT_EQ(home.stored("rows"), 5.0);
  EXPECT_EQ(home.stored("square"), Json());
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 1u);
}

// A choice that is not stored means the first layout, there or not.
TEST(PaneButton, ResetsToNoLayoutWhereNoneIsLeft) {
  PaneHome home({"--presets", test::temporaryFile("none.json", R"({"configurations":[]})")});
  press(home, "Reset to Defaults");
  answer(home, "Reset");
  EXPECT_EQ(home.stored("custom_preset"), -1);
}

TEST(PaneButton, ResetsToTheFirstLayoutWhereThereIsOne) {
  PaneHome home({"--presets", wide(), "--set", "custom_preset=-1"});
  press(home, "Reset to Defaults");
  answer(home, "Reset");
  EXPECT_EQ(home.stored("custom_preset"), Json());
}

TEST(PaneButton, LeavesNoAlertBehindWhenSettingsIsLeft) {
  PaneHome home;
  press(home, "Paste Layout");
  EXPECT_FALSE(home.report()["alert"].isNull());
  home.step("home");
  EXPECT_TRUE(home.report()["alert"].isNull());
}

TEST(PaneButton, RespringsAfterAQuestion) {
  PaneHome home;
  press(home, "Respring");
  answer(home, "Cancel");
  EXPECT_EQ(home.report()["respringsAsked"], 0);
  press(home, "Respring");
  answer(home, "Respring");
  EXPECT_EQ(home.report()["respringsAsked"], 1);
}

}  // namespace
