// The steps of a script that use a row of numbers.
#include "simulator/device/usage_error.hpp"
#include "tests/library/color_slider_fixture.hpp"

namespace test {
namespace {

class RowStep : public ColorSlider {
 protected:
  std::string errorOf(const std::string& line) {
    try {
      home.step(line);
    } catch (const sim::UsageError& error) {
      return error.what();
    }
    return "no error";
  }
};

TEST_F(RowStep, SlideDragsTheThumbToTheValue) {
  show(-20, 100, 5);
  const double before = home.report()["time"];
  home.step("slide \"Row\" 27.5");
  EXPECT_EQ(slider->value(), 27.5f);
  EXPECT_EQ(home.report()["time"], before);
}

TEST_F(RowStep, SlideReachesBothEnds) {
  show(-20, 100, 5);
  home.step("slide \"Row\" -20");
  EXPECT_EQ(slider->value(), -20);
  home.step("slide \"Row\" 100");
  EXPECT_EQ(slider->value(), 100);
}

TEST_F(RowStep, SlideRefusesWhatTheRowDoesNotReach) {
  show(-20, 100, 5);
  EXPECT_EQ(errorOf("slide \"Row\" 101"), "test:1: \"Row\" goes from -20 to 100, not to 101");
  EXPECT_EQ(slider->value(), 5);
}

TEST_F(RowStep, SaysThatThereIsNoSuchRow) {
  EXPECT_EQ(errorOf("slide \"Row\" 3"), "test:1: no row is called \"Row\"");
}

TEST_F(RowStep, SaysWhatIsInTheWayOfTheThumb) {
  show();
  slider->enabled.set(NO);
  EXPECT_EQ(errorOf("slide \"Row\" 3"), "test:1: the thumb of \"Row\" is disabled");
  slider->enabled.set(YES);
  slider->hidden.set(YES);
  EXPECT_EQ(errorOf("slide \"Row\" 3"), "test:1: the thumb of \"Row\" is hidden");
  slider->hidden.set(NO);
  auto cover = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 200}});
  card->addSubview(cover);
  EXPECT_EQ(errorOf("slide \"Row\" 3"), "test:1: the thumb of \"Row\" is covered by a UIView");
  cover->removeFromSuperview();
  card->frame.set({{-400, 100}, {300, 200}});
  EXPECT_EQ(errorOf("slide \"Row\" 3"), "test:1: the thumb of \"Row\" is not on the screen");
}

TEST_F(RowStep, TypeReplacesWhatTheFieldHoldsKeyByKey) {
  show();
  const double before = home.report()["time"];
  ASSERT_EQ(fieldText(), "12.2");
  home.step("type \"Row\" \"-37\"");
  EXPECT_EQ(fieldText(), "-37");
  // Four deletions and three keys of 0.1 s.
  EXPECT_NEAR(home.report()["time"].get<double>() - before, 0.7, 1e-9);
  EXPECT_TRUE(slider->valueLabel().isFirstResponder());
}

TEST_F(RowStep, TypeOfNothingOnlyDeletes) {
  show();
  home.step("type \"Row\" \"\"");
  EXPECT_EQ(fieldText(), "");
}

TEST_F(RowStep, TypeTakesKeysOfOtherPagesAndOfOtherKeyboards) {
  show();
  home.step("type \"Row\" \"1aB{\u00fc2\"");
  EXPECT_EQ(fieldText(), "12");  // the field refuses all but the digits
  EXPECT_EQ(error(), "Invalid character entry");
}

TEST_F(RowStep, PasteReplacesWhatTheFieldHoldsAtOnce) {
  show();
  home.step("paste \"Row\" \"42\"");
  EXPECT_EQ(fieldText(), "42");
  home.step("paste \"Row\" \"4.2\"");
  EXPECT_EQ(fieldText(), "");
}

TEST_F(RowStep, ApplyAndCancelPressTheBarAboveTheKeyboard) {
  show();
  home.step("type \"Row\" \"33\"");
  const double before = home.report()["time"];
  home.step("cancel \"Row\"");
  EXPECT_EQ(slider->value(), 5);
  EXPECT_FALSE(slider->valueLabel().isFirstResponder());
  home.step("type \"Row\" \"34\"");
  home.step("apply \"Row\"");
  EXPECT_EQ(slider->value(), 34);
  EXPECT_NEAR(home.report()["time"].get<double>() - before, 0.4, 1e-9);
}

TEST_F(RowStep, ApplyAndCancelWantTheFieldToBeEdited) {
  show();
  EXPECT_EQ(errorOf("apply \"Row\""), "test:1: the number field of \"Row\" is not being edited");
  EXPECT_EQ(errorOf("cancel \"Row\""), "test:1: the number field of \"Row\" is not being edited");
}

TEST_F(RowStep, TypeSaysWhatIsInTheWayOfTheField) {
  show();
  slider->valueLabel().hidden.set(YES);
  EXPECT_EQ(errorOf("type \"Row\" \"3\""), "test:1: the number field of \"Row\" is hidden");
}

}  // namespace
}  // namespace test
