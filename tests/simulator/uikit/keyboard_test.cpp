// The keyboard: when it comes and goes, what it shows, and what its keys do.
#include "simulator/uikit/text/keyboard.hpp"

#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "tests/simulator/uikit/text_field_fixture.hpp"

namespace test {
namespace {

using sim::uikit::keyboardFrame;
using sim::uikit::KeyboardPage;
using sim::uikit::KeyKind;
using sim::uikit::keyOfKind;
using sim::uikit::nextKeyFor;

class Keyboard : public Fields {
 protected:
  ~Keyboard() override {
    window->endEditing(YES);
    pass(1);
  }

  void edit(UITextField of) {
    of.becomeFirstResponder();
    pass(0.25);
    sim::uikit::layoutPass();
  }

  static CGPoint middleOf(UIView view) {
    const CGRect bounds = view.bounds();
    return view.convertPoint_toView({bounds.size.width / 2, bounds.size.height / 2}, {});
  }
  void press(UIControl key) {
    ASSERT_TRUE(key);
    sim::uikit::layoutPass();
    tap(middleOf(key));
  }
  // Types by taps alone; fails where the keyboard lacks the character.
  void type(const std::string& character) {
    for (;;) {
      const auto next = nextKeyFor(character);
      ASSERT_TRUE(next.key) << character;
      press(next.key);
      if (next.types) return;
    }
  }
  static bool types(const std::string& character) { return nextKeyFor(character).types; }

  static void become(CGSize size, NSInteger idiom) {
    auto other = phone();
    other.size = size;
    other.idiom = idiom;
    sim::uikit::configure(other);
  }
};

TEST_F(Keyboard, RisesInAQuarterOfASecond) {
  EXPECT_EQ(keyboardFrame(), CGRect{});
  field->becomeFirstResponder();
  sim::uikit::layoutPass();
  const UIView host = keyOfKind(KeyKind::space).superview().superview();
  EXPECT_EQ(keyboardFrame(), (CGRect{{0, 451}, {375, 216}}));  // confirmed: 216 points on phones of this size
  EXPECT_NEAR(shown(host).position.y, 667 + 108, 1e-6);
  pass(0.25);
  EXPECT_NEAR(shown(host).position.y, 451 + 108, 1e-6);  // confirmed: UIKeyboardAnimationDuration is 0.25
}

TEST_F(Keyboard, GoesDownWithTheLastResponder) {
  edit(field);
  const UIWindow shownIn = keyOfKind(KeyKind::space).window();
  field->resignFirstResponder();
  EXPECT_EQ(keyboardFrame(), CGRect{});
  EXPECT_FALSE(shownIn.hidden());
  pass(0.25);
  EXPECT_TRUE(shownIn.hidden());
}

TEST_F(Keyboard, TellsWhenItComesAndGoes) {
  listenToKeyboard();
  field->becomeFirstResponder();
  EXPECT_EQ(takeLog(), (Log{"UIKeyboardWillShowNotification"}));  // confirmed: Apple documentation
  pass(0.25);
  turn();
  EXPECT_EQ(takeLog(), (Log{"UIKeyboardDidShowNotification"}));
  field->resignFirstResponder();
  EXPECT_EQ(takeLog(), (Log{"UIKeyboardWillHideNotification"}));
  pass(0.25);
  turn();
  EXPECT_EQ(takeLog(), (Log{"UIKeyboardDidHideNotification"}));
}

TEST_F(Keyboard, TellsBeforeTheDelegateHearsThatEditingBegan) {
  listen();
  listenToKeyboard();
  field->becomeFirstResponder();
  // confirmed: Apple documentation of UITextField
  EXPECT_EQ(takeLog(), (Log{"should begin field", "UIKeyboardWillShowNotification", "delegate began field",
                            "began field"}));
}

TEST_F(Keyboard, StaysUpFromFieldToField) {
  edit(field);
  listenToKeyboard();
  other->becomeFirstResponder();
  pass(1);
  EXPECT_TRUE(takeLog().empty());  // assumed
  EXPECT_EQ(keyboardFrame().origin.y, 451);
}

TEST_F(Keyboard, TypesWhatItsKeysSay) {
  edit(field);
  for (const char* character : {"h", "i", " ", "H", "i", "4", "2", "!", "{", "o"}) type(character);
  EXPECT_EQ(textOf(field), "hi Hi42!{o");
  press(keyOfKind(KeyKind::remove));
  EXPECT_EQ(textOf(field), "hi Hi42!{");
}

TEST_F(Keyboard, ShiftHoldsForOneLetter) {
  edit(field);
  press(keyOfKind(KeyKind::shift));
  EXPECT_TRUE(types("A"));
  EXPECT_FALSE(types("a"));
  type("A");
  EXPECT_TRUE(types("a"));  // confirmed: shift is no lock
}

TEST_F(Keyboard, BeginsWithLettersOrDigitsAsTheFieldWants) {
  edit(field);
  EXPECT_TRUE(types("q"));
  EXPECT_FALSE(types("1"));
  other->keyboardType.set(UIKeyboardTypeNumbersAndPunctuation);
  edit(other);
  EXPECT_TRUE(types("1"));  // confirmed: Apple documentation of UIKeyboardType
  EXPECT_FALSE(types("q"));
  for (const char* key : {"0", "-", "/", ":", ";", "(", ")", "$", "&", "@", "\"", ".", ",", "?", "!", "'"})
    EXPECT_TRUE(types(key)) << key;
}

TEST_F(Keyboard, LacksWhatItHasNoKeyFor) {
  edit(field);
  EXPECT_FALSE(nextKeyFor("ü").key);
  field->resignFirstResponder();
  EXPECT_FALSE(nextKeyFor("q").key);
}

TEST_F(Keyboard, ReturnKeyIsDisabledWithoutTextWhereThatIsWanted) {
  field->enablesReturnKeyAutomatically.set(YES);
  edit(field);
  EXPECT_FALSE(keyOfKind(KeyKind::enter).enabled());  // confirmed: enablesReturnKeyAutomatically
  type("a");
  EXPECT_TRUE(keyOfKind(KeyKind::enter).enabled());
  press(keyOfKind(KeyKind::remove));
  EXPECT_FALSE(keyOfKind(KeyKind::enter).enabled());
  edit(other);
  EXPECT_TRUE(keyOfKind(KeyKind::enter).enabled());
}

TEST_F(Keyboard, ReturnKeyIsTheDelegates) {
  edit(field);
  listen();
  press(keyOfKind(KeyKind::enter));
  EXPECT_EQ(takeLog(), (Log{"should return"}));
}

TEST_F(Keyboard, CarriesTheAccessoryViewAboveItsKeys) {
  auto bar = makeView({{0, 0}, {320, 44}});
  field->setInputAccessoryView(bar);
  edit(field);
  EXPECT_EQ(keyboardFrame(), (CGRect{{0, 407}, {375, 260}}));
  // confirmed: as wide as the screen, as high as it came
  EXPECT_EQ(bar->frame(), (CGRect{{0, 0}, {375, 44}}));
  edit(other);
  EXPECT_FALSE(bar->superview());
  EXPECT_EQ(keyboardFrame().size.height, 216);
}

TEST_F(Keyboard, GivesWayToTheViewThatTheFieldBrings) {
  auto own = makeView({{0, 0}, {100, 120}});
  field->setInputView(own);
  edit(field);
  EXPECT_EQ(keyboardFrame(), (CGRect{{0, 547}, {375, 120}}));  // confirmed: documentation of inputView
  EXPECT_FALSE(keyOfKind(KeyKind::space));
}

TEST_F(Keyboard, LetsTouchesBesideItThrough) {
  edit(field);
  tap({100, 135});
  EXPECT_TRUE(other->isFirstResponder());
}

TEST_F(Keyboard, GoesWithAFieldThatLeavesTheScreen) {
  edit(field);
  field->removeFromSuperview();
  EXPECT_EQ(keyboardFrame(), CGRect{});
}

TEST_F(Keyboard, IsDarkWhereTheFieldWantsThat) {
  const auto brightness = [&] {
    CGFloat red;
    keyOfKind(KeyKind::space)
        .superview()
        .backgroundColor()
        .getRed_green_blue_alpha(&red, nullptr, nullptr, nullptr);
    return red;
  };
  edit(field);
  EXPECT_GT(brightness(), 0.7);
  other->keyboardAppearance.set(UIKeyboardAppearanceDark);
  edit(other);
  EXPECT_LT(brightness(), 0.3);
}

TEST_F(Keyboard, FollowsTheScreenWhenItTurns) {
  become({414, 736}, 0);
  edit(field);
  EXPECT_EQ(keyboardFrame(), (CGRect{{0, 510}, {414, 226}}));  // confirmed: 226 points on the largest phones
  sim::uikit::setInterfaceOrientation(UIInterfaceOrientationLandscapeRight);
  keyOfKind(KeyKind::space).window().frame.set({{0, 0}, {736, 414}});
  sim::uikit::layoutPass();
  EXPECT_EQ(keyboardFrame(), (CGRect{{0, 252}, {736, 162}}));  // confirmed: 162 points
  type("p");
  EXPECT_EQ(textOf(field), "p");
}

TEST_F(Keyboard, IsLargerOnATablet) {
  become({768, 1024}, 1);
  edit(field);
  EXPECT_EQ(keyboardFrame(), (CGRect{{0, 760}, {768, 264}}));  // confirmed: 264 points
  for (const char* character : {"q", "1", "'", "[", "a"}) type(character);
  EXPECT_EQ(textOf(field), "q1'[a");
  press(keyOfKind(KeyKind::hide));
  EXPECT_FALSE(field->isFirstResponder());  // confirmed: the key in the lower right corner
}

TEST(KeyboardLayout, KeysFillTheRowsWithoutGaps) {
  for (const KeyboardPage page :
       {KeyboardPage::letters, KeyboardPage::capitals, KeyboardPage::numbers, KeyboardPage::symbols})
    for (const bool tablet : {false, true}) {
      const auto keys = sim::uikit::keysOf({.page = page, .tablet = tablet, .size = {320, 216}});
      double left = keys.front().frame.origin.x;  // of the row
      for (std::size_t i = 1; i < keys.size(); ++i) {
        const CGRect before = keys[i - 1].frame, here = keys[i].frame;
        const double end = before.origin.x + before.size.width;
        if (before.origin.y == here.origin.y) {
          EXPECT_NEAR(here.origin.x, end, 1e-9);
          continue;
        }
        EXPECT_NEAR(left, 320 - end, 1e-9);  // as much room at either side
        EXPECT_EQ(here.origin.y, before.origin.y + 54);
        left = here.origin.x;
      }
      EXPECT_EQ(keys.back().frame.origin.y + keys.back().frame.size.height, 216);
    }
}

}  // namespace
}  // namespace test
