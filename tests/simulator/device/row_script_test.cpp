// Scripts: the grammar of the steps that use a row of numbers.
#include <gtest/gtest.h>

#include "tests/simulator/device/step_fixture.hpp"

namespace sim {
namespace {

TEST(RowScript, SlideTakesARowAndAValue) {
  const Step step = parse("slide \"Top Inset\" -20.5");
  EXPECT_EQ(step.name(), "slide");
  EXPECT_EQ(step.text(0), "Top Inset");
  EXPECT_EQ(step.number(1), -20.5);
  EXPECT_EQ(errorOf("slide \"Top Inset\""), "file:7: 'slide' lacks VALUE");
  EXPECT_EQ(errorOf("slide \"Top Inset\" high"), "file:7: 'high' is not what 'slide \"NAME\" VALUE' takes");
  EXPECT_EQ(errorOf("slide \"Top Inset\" 1e39"), "file:7: '1e39' is not what 'slide \"NAME\" VALUE' takes");
  EXPECT_EQ(errorOf("slide Top 3"), "file:7: 'Top' is not what 'slide \"NAME\" VALUE' takes");
}

TEST(RowScript, TypeTakesATextThatMayBeEmpty) {
  const Step step = parse("type \"Top Inset\" \"1 \\\"2\\\"\"");
  EXPECT_EQ(step.name(), "type");
  EXPECT_EQ(step.text(1), "1 \"2\"");
  EXPECT_EQ(parse("type \"Top Inset\" \"\"").text(1), "");
  EXPECT_EQ(errorOf("type \"Top Inset\" 12"), "file:7: '12' is not what 'type \"NAME\" \"TEXT\"' takes");
  EXPECT_EQ(errorOf("type \"\" \"12\""), "file:7: '' is not what 'type \"NAME\" \"TEXT\"' takes");
}

TEST(RowScript, PasteTakesATextThatMayBeEmpty) {
  const Step step = parse("paste \"Top Inset\" \"12.5\"");
  EXPECT_EQ(step.name(), "paste");
  EXPECT_EQ(step.text(1), "12.5");
  EXPECT_EQ(errorOf("paste \"Top Inset\""), "file:7: 'paste' lacks \"TEXT\"");
}

TEST(RowScript, ApplyAndCancelTakeARow) {
  EXPECT_EQ(parse("apply \"Top Inset\"").name(), "apply");
  EXPECT_EQ(parse("cancel \"Top Inset\"").name(), "cancel");
  EXPECT_EQ(errorOf("apply"), "file:7: 'apply' lacks \"NAME\"");
  EXPECT_EQ(errorOf("cancel \"Top Inset\" 3"), "file:7: '3' is too much for 'cancel \"NAME\"'");
}

}  // namespace
}  // namespace sim
