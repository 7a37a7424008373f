// Scripts: the grammar of what fingers do.
#include <gtest/gtest.h>

#include "tests/simulator/device/step_fixture.hpp"

namespace sim {
namespace {

TEST(TouchScript, SwipeTakesADirectionAndMayTakeAPlace) {
  const Step step = parse("swipe up");
  EXPECT_EQ(step.name(), "swipe");
  EXPECT_EQ(step.text(0), "up");
  EXPECT_EQ(step.arguments.size(), 1u);
  EXPECT_EQ(parse("swipe left 10 20.5").number(2), 20.5);
  EXPECT_EQ(errorOf("swipe sideways"), "file:7: 'sideways' is not what 'swipe up|down|left|right X Y' takes");
  EXPECT_EQ(errorOf("swipe up 3"), "file:7: 'swipe' lacks Y");
}

TEST(TouchScript, TapTakesAPlaceOrAName) {
  EXPECT_EQ(parse("tap 10 -20").number(1), -20);
  EXPECT_EQ(parse("tap \"App Store\"").text(0), "App Store");
  EXPECT_EQ(errorOf("tap Maps"), "file:7: 'Maps' is not what 'tap X Y' takes");
  EXPECT_EQ(errorOf("tap \"\""), "file:7: '' is not what 'tap X Y' takes");
}

TEST(TouchScript, PlacesOfPressAndTwoFingerTapMayBeLeftOut) {
  EXPECT_EQ(parse("two-finger-tap").name(), "two-finger-tap");
  EXPECT_EQ(parse("two-finger-tap 1 2").arguments.size(), 2u);
  EXPECT_EQ(parse("press 3.5").number(0), 3.5);
  EXPECT_EQ(parse("press 3.5 1 2").arguments.size(), 3u);
  EXPECT_EQ(errorOf("press -1"), "file:7: '-1' is not what 'press FORCE X Y' takes");
}

TEST(TouchScript, DragMayTakeSeconds) {
  EXPECT_EQ(parse("drag 1 2 3 4").arguments.size(), 4u);
  EXPECT_EQ(parse("drag 1 2 3 4 0.7").number(4), 0.7);
  EXPECT_EQ(errorOf("drag 1 2 3"), "file:7: 'drag' lacks Y");
}

TEST(TouchScript, FingersAreNumbered) {
  const Step step = parse("finger 2 move 10 20 0.5");
  EXPECT_EQ(step.name(), "finger");
  EXPECT_EQ(step.number(0), 2);
  EXPECT_EQ(step.text(1), "move");
  EXPECT_EQ(step.number(4), 0.5);
  EXPECT_EQ(parse("finger 0 up 1 2").arguments.size(), 4u);
  for (const char* bad : {"finger 1.5 up 1 2", "finger 11 up 1 2", "finger -1 up 1 2", "finger 1 lift 1 2"})
    EXPECT_NE(errorOf(bad).find("is not what"), std::string::npos) << bad;
}

TEST(TouchScript, PressesOfARowMayBeCounted) {
  EXPECT_EQ(parse("increment \"Top Inset\"").name(), "increment");
  EXPECT_EQ(parse("increment \"Top Inset\"").text(0), "Top Inset");
  const Step step = parse("decrement \"Top Inset\" 5");
  EXPECT_EQ(step.name(), "decrement");
  EXPECT_EQ(step.number(1), 5);
  for (const char* bad : {"0", "-1", "1.5", "\"2\"", "10001"})
    EXPECT_NE(errorOf(std::string("increment \"Top Inset\" ") + bad).find("is not what"), std::string::npos)
        << bad;
  EXPECT_EQ(errorOf("increment"), "file:7: 'increment' lacks \"NAME\"");
}

TEST(TouchScript, PagesAreTwo) {
  EXPECT_EQ(parse("page 0").text(0), "0");
  EXPECT_EQ(parse("page 1").name(), "page");
  for (const char* bad : {"page 2", "page -1", "page one"})
    EXPECT_NE(errorOf(bad).find("is not what 'page 0|1' takes"), std::string::npos) << bad;
}

}  // namespace
}  // namespace sim
