// Text fields: what the delegate is asked and told, and what changes the text.
#include "platform/uikit/pasteboard.hpp"
#include "simulator/uikit/text/clear_button.hpp"
#include "tests/simulator/uikit/text_field_fixture.hpp"

namespace test {
namespace {

struct Growing : bridge::Face<"NSMutableString", NSString> {
  MESSAGE Method<"appendString:", void(NSString)> appendString;
};

class TextField : public Fields {};

TEST_F(TextField, HasAnEmptyTextAtFirst) {
  ASSERT_TRUE(field->text());  // confirmed: Apple documentation of text
  EXPECT_EQ(textOf(field), "");
  field->text.set({});
  ASSERT_TRUE(field->text());
  EXPECT_FALSE(field->hasText());
}

TEST_F(TextField, CopiesTheTextItIsGiven) {
  auto text = make<Growing, &NSObject::init>();
  field->text.set(text);
  text->appendString("later"_ns);
  EXPECT_EQ(textOf(field), "");  // confirmed: the property copies
}

TEST_F(TextField, IsBlackAndOfTheSystemFontUnlessToldOtherwise) {
  EXPECT_TRUE(field->textColor() == UIColor::blackColor());  // confirmed: Apple documentation of textColor
  EXPECT_EQ(field->font().pointSize(), 17);                  // assumed
  EXPECT_EQ(field->keyboardType(), UIKeyboardTypeDefault);
  EXPECT_EQ(field->returnKeyType(), UIReturnKeyDefault);
  EXPECT_EQ(field->borderStyle(), UITextBorderStyleNone);
}

TEST_F(TextField, BeginsToEditWhenItIsTapped) {
  listen();
  EXPECT_FALSE(field->isEditing());
  tap({100, 75});
  EXPECT_TRUE(field->isEditing());
  EXPECT_TRUE(field->isFirstResponder());
  // confirmed: Apple documentation of UITextField, Validating Text and Managing the Editing Process
  EXPECT_EQ(takeLog(), (Log{"should begin field", "delegate began field", "began field"}));
}

TEST_F(TextField, BeginsNothingAgainstItsDelegate) {
  listen();
  fieldAnswers().begins = false;
  EXPECT_FALSE(field->becomeFirstResponder());  // confirmed: documentation of textFieldShouldBeginEditing:
  EXPECT_FALSE(field->isEditing());
  EXPECT_EQ(takeLog(), (Log{"should begin field"}));
}

TEST_F(TextField, BeginsNothingWhileItIsDisabled) {
  listen();
  field->enabled.set(NO);
  tap({100, 75});
  EXPECT_FALSE(field->becomeFirstResponder());  // assumed
  EXPECT_TRUE(takeLog().empty());
}

TEST_F(TextField, EndsWhenItResigns) {
  field->becomeFirstResponder();
  listen();
  EXPECT_TRUE(field->resignFirstResponder());
  EXPECT_FALSE(field->isEditing());
  EXPECT_EQ(takeLog(),
            (Log{"should end field", "delegate ended field", "ended field"}));  // confirmed: as above
}

TEST_F(TextField, GoesOnAgainstItsDelegatesWill) {
  field->becomeFirstResponder();
  listen();
  fieldAnswers().ends = false;
  EXPECT_FALSE(field->resignFirstResponder());  // confirmed: documentation of textFieldShouldEndEditing:
  EXPECT_TRUE(field->isEditing());
  EXPECT_FALSE(other->becomeFirstResponder());
  EXPECT_TRUE(field->isFirstResponder());
}

TEST_F(TextField, PassesEditingOn) {
  listen();
  field->becomeFirstResponder();
  takeLog();
  EXPECT_TRUE(other->becomeFirstResponder());
  EXPECT_FALSE(field->isEditing());
  // confirmed: as above; assumed: that the new one is asked first
  EXPECT_EQ(takeLog(), (Log{"should begin other", "should end field", "delegate ended field", "ended field",
                            "delegate began other", "began other"}));
}

TEST_F(TextField, AsksBeforeAKeyChangesItsText) {
  listen();
  field->text.set("ab"_ns);
  field->becomeFirstResponder();
  takeLog();
  sim::uikit::typeText(field, "c"_ns);
  sim::uikit::typeDelete(field);
  // confirmed: documentation of textField:shouldChangeCharactersInRange:replacementString:
  EXPECT_EQ(takeLog(),
            (Log{"should change 2+0 'c'", "changed 'abc'", "should change 2+1 ''", "changed 'ab'"}));
}

TEST_F(TextField, StaysAsItIsAgainstItsDelegatesWill) {
  listen();
  field->text.set("ab"_ns);
  fieldAnswers().changes = false;
  sim::uikit::typeText(field, "c"_ns);
  sim::uikit::typeDelete(field);
  EXPECT_EQ(textOf(field), "ab");
}

TEST_F(TextField, HasNothingToDeleteWhenItIsEmpty) {
  listen();
  sim::uikit::typeDelete(field);
  EXPECT_TRUE(takeLog().empty());  // assumed
}

TEST_F(TextField, DeletesPairsOfSurrogatesWhole) {
  listen();
  field->text.set(NSString::stringWithUTF8String("a\U0001F600"));
  sim::uikit::typeDelete(field);
  EXPECT_EQ(takeLog(), (Log{"should change 1+2 ''", "changed 'a'"}));
}

TEST_F(TextField, AsksNobodyAboutProgramsThatChangeIt) {
  listen();
  field->text.set("ab"_ns);
  EXPECT_TRUE(takeLog().empty());  // confirmed: events are for what the user does
  field->insertText("c"_ns);
  field->deleteBackward();
  EXPECT_EQ(takeLog(), (Log{"changed 'abc'", "changed 'ab'"}));  // assumed
}

TEST_F(TextField, PastesAllAtOnce) {
  listen();
  field->text.set("1"_ns);
  UIPasteboard::generalPasteboard().string.set("234"_ns);
  field->paste({});
  EXPECT_EQ(takeLog(), (Log{"should change 1+0 '234'", "changed '1234'"}));  // assumed
}

TEST_F(TextField, PastesNothingFromAnEmptyPasteboard) {
  listen();
  UIPasteboard::generalPasteboard().string.set({});
  field->paste({});
  EXPECT_TRUE(takeLog().empty());
}

TEST_F(TextField, ReturnKeyAsksAndGoesOnEditing) {
  listen();
  field->becomeFirstResponder();
  takeLog();
  sim::uikit::typeReturn(field);
  EXPECT_EQ(takeLog(), (Log{"should return"}));
  EXPECT_TRUE(field->isEditing());  // confirmed: the key dismisses nothing by itself
}

TEST_F(TextField, ReturnKeyEndsEditingWhereAnActionWaitsForIt) {
  field->becomeFirstResponder();
  field->addTarget_action_forControlEvents(fieldListener,
                                           bridge::Descriptor<&FieldListener::didEnd>::selector(),
                                           UIControlEventEditingDidEndOnExit);
  sim::uikit::typeReturn(field);
  EXPECT_FALSE(field->isEditing());  // confirmed: the well-known use of Did End On Exit
  EXPECT_EQ(takeLog(), (Log{"ended field"}));
}

TEST_F(TextField, ClearButtonShowsAsItsModeSays) {
  const auto isShown = [&] {
    field->layoutIfNeeded();
    return !sim::uikit::stateOf(field.get()).clearButton->hidden();
  };
  field->text.set("a"_ns);
  EXPECT_FALSE(isShown());
  field->clearButtonMode.set(UITextFieldViewModeAlways);
  EXPECT_TRUE(isShown());
  field->clearButtonMode.set(UITextFieldViewModeWhileEditing);
  EXPECT_FALSE(isShown());
  field->becomeFirstResponder();
  EXPECT_TRUE(isShown());  // confirmed: Apple documentation of clearButtonMode
  field->text.set({});
  EXPECT_FALSE(isShown());  // confirmed: there is nothing to clear
  field->text.set("a"_ns);
  field->clearButtonMode.set(UITextFieldViewModeUnlessEditing);
  EXPECT_FALSE(isShown());
}

TEST_F(TextField, ClearButtonTakesTheTextAway) {
  field->text.set("abc"_ns);
  field->clearButtonMode.set(UITextFieldViewModeAlways);
  listen();
  tap({220 - sim::uikit::clearButtonWidth / 2, 75});
  EXPECT_EQ(takeLog(), (Log{"should clear", "changed ''"}));  // confirmed: textFieldShouldClear:
  field->text.set("abc"_ns);
  fieldAnswers().clears = false;
  tap({220 - sim::uikit::clearButtonWidth / 2, 75});
  EXPECT_EQ(textOf(field), "abc");
}

TEST_F(TextField, CaretStandsAtTheTextsEndWhileItIsEdited) {
  const Strong<UIView>& caret = sim::uikit::stateOf(field.get()).caret;
  field->layoutIfNeeded();
  EXPECT_TRUE(caret->hidden());
  field->becomeFirstResponder();
  field->layoutIfNeeded();
  EXPECT_FALSE(caret->hidden());
  EXPECT_EQ(caret->frame().origin.x, 0);
  field->text.set("8888"_ns);
  field->layoutIfNeeded();
  const CGFloat left = caret->frame().origin.x;
  EXPECT_GT(left, 30);
  field->textAlignment.set(NSTextAlignmentRight);
  field->layoutIfNeeded();
  EXPECT_EQ(caret->frame().origin.x, 198);
  field->textAlignment.set(NSTextAlignmentCenter);
  field->layoutIfNeeded();
  EXPECT_NEAR(caret->frame().origin.x, (200 - left) / 2 + left, 1);
}

TEST_F(TextField, CaretStaysWithinTheFieldWhenTheTextDoesNot) {
  field->text.set("a text that is a good deal too long for so short a field"_ns);
  field->becomeFirstResponder();
  field->layoutIfNeeded();
  EXPECT_NEAR(sim::uikit::stateOf(field.get()).caret->frame().origin.x, 198, 1e-6);
}

TEST_F(TextField, DiesQuietlyWhileItIsEdited) {
  auto passing = makeField({{20, 200}, {100, 30}}, "passing");
  passing->becomeFirstResponder();
  passing->removeFromSuperview();
  passing.clear();
  EXPECT_TRUE(field->becomeFirstResponder());
}

}  // namespace
}  // namespace test
