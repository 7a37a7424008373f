// Typing into the panel's number fields, and what a row does not let itself be used for.
#include <gtest/gtest.h>

#include "simulator/device/usage_error.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "tests/library/panel_home.hpp"

namespace test {
namespace {

using sim::Json;
using sim::uikit::keyboardFrame;

std::string errorOf(PanelHome& home, const std::string& line) {
  try {
    home.step(line);
  } catch (const sim::UsageError& error) {
    return error.what();
  }
  return "no error";
}

bool keyboardIsUp() { return keyboardFrame().size.height > 0; }

TEST(PanelTyping, AppliedNumbersAreStoredAndMoveTheIcons) {
  PanelHome home;
  home.open();
  home.step("type \"Side Inset\" \"40\"");
  EXPECT_EQ(home.stored("sideIconInset"_ns), 27);
  EXPECT_TRUE(home.report()["relayouts"].empty());
  home.step("apply \"Side Inset\"");
  EXPECT_EQ(home.stored("sideIconInset"_ns), 40);
  EXPECT_EQ(home.live("custom_preset"_ns), -1);
  EXPECT_EQ(home.shown()["rows"]["Side Inset"]["text"], "40.0");
  home.wait(1);
  EXPECT_EQ(home.report()["relayouts"].size(), 1);
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["frame"][0], 40);
  EXPECT_FALSE(keyboardIsUp());
}

TEST(PanelTyping, AppliedNumbersFadeThePanelForThreeSeconds) {
  PanelHome home;
  home.open();
  home.step("type \"Side Inset\" \"40\"");
  home.step("apply \"Side Inset\"");
  home.wait(0.5);
  EXPECT_EQ(home.shown()["alpha"], 0.5);
  home.wait(2.8);
  EXPECT_EQ(home.shown()["alpha"], 1);
}

TEST(PanelTyping, NumbersOutOfRangeAreSaidToBeSo) {
  PanelHome home;
  home.open();
  home.step("type \"Side Inset\" \"501\"");
  home.step("apply \"Side Inset\"");
  home.wait(0.4);
  const Json row = home.shown()["rows"]["Side Inset"];
  EXPECT_EQ(row["error"], "Min: 0.0 Max: 500.0");
  EXPECT_EQ(row["text"], "501");
  EXPECT_EQ(row["value"], 27);
  EXPECT_EQ(home.stored("sideIconInset"_ns), 27);
  EXPECT_TRUE(keyboardIsUp());
  home.wait(2.5);
  EXPECT_EQ(home.shown()["rows"]["Side Inset"]["error"], nullptr);
}

TEST(PanelTyping, CancelStoresNothing) {
  PanelHome home;
  home.open();
  home.step("type \"Side Inset\" \"40\"");
  home.step("cancel \"Side Inset\"");
  home.wait(1);
  EXPECT_EQ(home.stored("sideIconInset"_ns), 27);
  EXPECT_EQ(home.shown()["rows"]["Side Inset"]["text"], "40");
  EXPECT_TRUE(home.report()["relayouts"].empty());
  EXPECT_FALSE(keyboardIsUp());
}

TEST(PanelTyping, FieldsStartWithTheStoredNumbers) {
  PanelHome home({"vertIconPadding=14.25"});
  home.open();
  EXPECT_EQ(home.shown()["rows"]["Vertical Padding"]["text"], "14.2");
  EXPECT_EQ(home.shown()["rows"]["Vertical Padding"]["value"], 14.25);
}

TEST(PanelTyping, KeyboardGoesWithThePanel) {
  PanelHome home;
  home.open();
  home.step("type \"Horizontal Padding\" \"4\"");
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_TRUE(home.shown().isNull());
  EXPECT_FALSE(keyboardIsUp());
}

TEST(PanelTyping, KeyboardGoesFromRowToRowAndStaysUp) {
  PanelHome home;
  home.open();
  home.step("type \"Horizontal Padding\" \"4\"");
  home.step("type \"Vertical Padding\" \"5\"");
  EXPECT_EQ(errorOf(home, "apply \"Horizontal Padding\""),
            "test:1: the number field of \"Horizontal Padding\" is not being edited");
  home.step("apply \"Vertical Padding\"");
  EXPECT_EQ(home.stored("horiIconPadding"_ns), 27);
  EXPECT_EQ(home.stored("vertIconPadding"_ns), 5);
}

TEST(PanelTyping, RowsUnderTheKeyboardAreCovered) {
  PanelHome home;
  home.open();
  home.step("type \"Horizontal Padding\" \"4\"");
  EXPECT_EQ(errorOf(home, "type \"Top Inset\" \"5\""),
            "test:1: the number field of \"Top Inset\" is covered by a UIKBKeyView");
}

TEST(PanelTyping, ARowCoveredByItsOwnKeyboardGoesOnBeingEdited) {
  PanelHome home;
  home.open();
  home.step("type \"Top Inset\" \"4\"");
  home.wait(1);
  home.step("type \"Top Inset\" \"50\"");
  home.step("apply \"Top Inset\"");
  EXPECT_EQ(home.stored("topIconInset"_ns), 50);
}

TEST(PanelRows, TakeNoTouchesWhileThePanelFades) {
  PanelHome home;
  home.open();
  home.step("slide \"Top Inset\" 60");
  EXPECT_EQ(errorOf(home, "slide \"Side Inset\" 60"),
            "test:1: the thumb of \"Side Inset\" takes no touches while it is animated");
  home.wait(0.2);
  home.step("slide \"Side Inset\" 60");
  EXPECT_EQ(home.stored("sideIconInset"_ns), 60);
}

TEST(PanelRows, AreOutOfSightOnTheOtherPage) {
  PanelHome home;
  home.open();
  home.step("page 1");
  home.wait(1);
  EXPECT_EQ(errorOf(home, "slide \"Top Inset\" 60"),
            "test:1: the thumb of \"Top Inset\" is not on the screen");
}

TEST(PanelRows, SlidingWritesEachValueOnTheWay) {
  PanelHome home;
  home.open();
  home.step("slide \"Top Inset\" 500");
  home.wait(1);
  EXPECT_EQ(home.stored("topIconInset"_ns), 500);
  // Ten moves and the end.
  EXPECT_EQ(home.report()["relayouts"].size(), 11);
}

}  // namespace
}  // namespace test
