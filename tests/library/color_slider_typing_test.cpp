// The number control: what is typed into its field, and the errors it shows.
#include "simulator/device/clock.hpp"
#include "simulator/uikit/views/view.hpp"
#include "tests/library/color_slider_fixture.hpp"
#include "tests/library/grid_home.hpp"

namespace test {
namespace {

class NumberField : public ColorSlider {
 protected:
  double errorAlpha() {
    return sim::uikit::layerOf(slider->errorLabel()).presentation(sim::clock::now()).opacity;
  }
  bool isEdited() { return slider->valueLabel().isFirstResponder(); }

  void apply(const std::string& text) {
    home.step("type \"Row\" \"" + text + "\"");
    home.step("apply \"Row\"");
  }
};

TEST_F(NumberField, TakesDigitsAndAMinusSign) {
  show();
  home.step("type \"Row\" \"-1234567890\"");
  EXPECT_EQ(fieldText(), "-1234567890");
  EXPECT_EQ(error(), "");
}

TEST_F(NumberField, TakesDeletions) {
  show();
  home.step("type \"Row\" \"12\"");
  home.step("type \"Row\" \"\"");
  EXPECT_EQ(fieldText(), "");
  EXPECT_EQ(error(), "");
}

TEST_F(NumberField, RefusesADecimalPoint) {
  show();
  home.step("type \"Row\" \"1.5\"");
  EXPECT_EQ(fieldText(), "15");
  EXPECT_EQ(error(), "Invalid number");
}

TEST_F(NumberField, RefusesLetters) {
  show();
  home.step("type \"Row\" \"1a5\"");
  EXPECT_EQ(fieldText(), "15");
  EXPECT_EQ(error(), "Invalid character entry");
}

TEST_F(NumberField, RefusesOtherMarks) {
  show();
  home.step("type \"Row\" \"1,5\"");
  EXPECT_EQ(fieldText(), "15");
  EXPECT_EQ(error(), "Invalid character entry");
}

TEST_F(NumberField, TakesAPastedRunOfDigits) {
  show();
  home.step("paste \"Row\" \"42\"");
  EXPECT_EQ(fieldText(), "42");
  EXPECT_EQ(error(), "");
}

TEST_F(NumberField, RefusesAPastedDecimal) {
  show();
  home.step("paste \"Row\" \"4.2\"");
  EXPECT_EQ(fieldText(), "");
  EXPECT_EQ(error(), "Invalid number");
}

TEST_F(NumberField, FindsThePointBeforeItFindsLetters) {
  show();
  home.step("paste \"Row\" \"a.b\"");
  EXPECT_EQ(error(), "Invalid number");
  home.step("paste \"Row\" \"4 2\"");
  EXPECT_EQ(error(), "Invalid character entry");
  EXPECT_EQ(fieldText(), "");
}

// Applying.

TEST_F(NumberField, AppliedIsTheValueAndIsAnnounced) {
  show();
  apply("34");
  EXPECT_EQ(slider->value(), 34);
  ASSERT_EQ(announced().size(), 1u);
  EXPECT_TRUE(announced()[0] == bridge::Object(slider.get()));
  EXPECT_FALSE(isEdited());
  EXPECT_EQ(error(), "");
}

// Whether the field of the control that says so is still edited.
std::vector<bool> edited;
void noteEdited(PressListener, NSNotification heard) {
  edited.push_back(bridge::as<tilo::ColorSlider>(heard.object()).valueLabel().isFirstResponder());
}

TEST_F(NumberField, IsLeftWhenTheNumberWasTold) {
  show();
  standIn<PressListener, &PressListener::pressed, noteEdited>();
  apply("34");
  EXPECT_EQ(edited, std::vector<bool>{true});
  EXPECT_FALSE(isEdited());
}

TEST_F(NumberField, AppliedLetsTheThumbGlideThere) {
  show();
  const UIView thumb = bridge::as<UIView>(slider->subviews().objectAtIndex(2));
  const auto x = [&] { return sim::uikit::layerOf(thumb).presentation(sim::clock::now()).position.x; };
  apply("5");
  home.step("wait 0.3");
  const double start = x();
  slider->valueLabel().text.set("90"_ns);
  slider->doneWithNumberPad();
  EXPECT_NEAR(x(), start, 1);
  home.step("wait 0.3");
  EXPECT_GT(x(), start + 50);
}

TEST_F(NumberField, NegativeNumbersApply) {
  show();
  apply("-7");
  EXPECT_EQ(slider->value(), -7);
}

TEST_F(NumberField, TheMaximumApplies) {
  show(-20, 100, 5);
  apply("100");
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberField, TheMinimumApplies) {
  show(-20, 100, 5);
  apply("-20");
  EXPECT_EQ(slider->value(), -20);
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberField, MoreThanTheMaximumDoesNotApply) {
  show(0, 20, 5);
  apply("25");
  EXPECT_EQ(error(), "Min: 0.0 Max: 20.0");
  EXPECT_EQ(slider->value(), 5);
  EXPECT_TRUE(announced().empty());
  EXPECT_TRUE(isEdited());
  EXPECT_EQ(fieldText(), "25");
}

TEST_F(NumberField, LessThanTheMinimumDoesNotApply) {
  show(-20, 100, 5);
  apply("-21");
  EXPECT_EQ(error(), "Min: -20.0 Max: 100.0");
  EXPECT_EQ(slider->value(), 5);
  EXPECT_TRUE(announced().empty());
  EXPECT_TRUE(isEdited());
}

TEST_F(NumberField, AnEmptyFieldIsZero) {
  show();
  apply("");
  EXPECT_EQ(slider->value(), 0);
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberField, ALoneMinusSignIsZero) {
  show();
  apply("-");
  EXPECT_EQ(slider->value(), 0);
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberField, ZeroAppliesOnlyWithinTheRange) {
  show(1, 20, 5);
  apply("-");
  EXPECT_EQ(error(), "Min: 1.0 Max: 20.0");
  EXPECT_EQ(slider->value(), 5);
  home.step("type \"Row\" \"\"");
  home.step("apply \"Row\"");
  EXPECT_EQ(slider->value(), 5);
  EXPECT_TRUE(announced().empty());
}

TEST_F(NumberField, ApplyingWhatIsShownAlreadyIsAnnouncedToo) {
  show(-20, 100, 5);
  apply("5");
  EXPECT_EQ(announced().size(), 1u);
}

TEST_F(NumberField, CancelKeepsTheTextAndTheValue) {
  show();
  home.step("type \"Row\" \"77\"");
  home.step("cancel \"Row\"");
  EXPECT_EQ(fieldText(), "77");
  EXPECT_EQ(slider->value(), 5);
  EXPECT_FALSE(isEdited());
  EXPECT_TRUE(announced().empty());
}

TEST_F(NumberField, DoneKeyGoesOnEditing) {
  show();
  home.step("type \"Row\" \"7\"");
  home.step("tap \"Done\"");
  EXPECT_TRUE(isEdited());
  EXPECT_EQ(slider->value(), 5);
}

// Errors.

TEST_F(NumberField, ErrorsComeAndGo) {
  show();
  tap(slider->valueLabel());  // so that the label is on the screen
  slider->errorWithMessage("No"_ns);
  EXPECT_EQ(error(), "No");
  EXPECT_EQ(errorAlpha(), 0);
  home.step("wait 0.2");
  EXPECT_NEAR(errorAlpha(), 0.5, 0.01);
  home.step("wait 0.2");
  EXPECT_NEAR(errorAlpha(), 1, 1e-6);
  home.step("wait 1.2");
  EXPECT_NEAR(errorAlpha(), 0.5, 0.01);
  home.step("wait 1.2");
  EXPECT_NEAR(errorAlpha(), 0, 1e-6);
}

TEST_F(NumberField, ANewErrorTakesTheOldOnesPlace) {
  show();
  home.step("type \"Row\" \".\"");
  home.step("wait 1");
  home.step("type \"Row\" \"a\"");
  EXPECT_EQ(error(), "Invalid character entry");
  home.step("wait 0.3");
  EXPECT_GT(errorAlpha(), 0.9);
}

TEST_F(NumberField, AlertIsBuiltButNotPresented) {
  show();
  const UIAlertController alert = slider->alertWithMessage("Mind the gap"_ns);
  EXPECT_STREQ(alert.title().UTF8String(), "Tilo 3");
  EXPECT_STREQ(alert.message().UTF8String(), "Mind the gap");
  EXPECT_EQ(alert.preferredStyle(), UIAlertControllerStyleAlert);
  ASSERT_EQ(alert.actions().count(), 1u);
  const auto action = bridge::as<UIAlertAction>(alert.actions().objectAtIndex(0));
  EXPECT_STREQ(action.title().UTF8String(), "Okay");
  EXPECT_EQ(action.style(), UIAlertActionStyleDefault);
  EXPECT_TRUE(home.report()["alert"].isNull());
}

TEST_F(NumberField, KeyboardGoesWhenAnApplicationOpensOrTheDeviceIsLocked) {
  show();
  card->frame.set({{40, 300}, {300, 200}});
  home.step("type \"Row\" \"1\"");
  home.step("launch \"Messages\"");
  EXPECT_FALSE(isEdited());
  home.step("home");
  home.step("wait 1");
  home.step("type \"Row\" \"1\"");
  EXPECT_TRUE(isEdited());
  home.step("lock");
  EXPECT_FALSE(isEdited());
}

}  // namespace
}  // namespace test
