// Buttons.
#include "platform/uikit/button.hpp"

#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class Button : public UIKit {
 protected:
  static Strong<UIButton> makeButton(NSInteger type = UIButtonTypeCustom) {
    return retained(UIButton::buttonWithType(type));
  }

  Strong<UIButton> button = makeButton();
};

TEST_F(Button, ShowsTheNormalTitleWhereAStateHasNone) {
  button->setTitle_forState("Normal"_ns, UIControlStateNormal);
  button->setTitle_forState("Pressed"_ns, UIControlStateHighlighted);
  // confirmed: Apple documentation of setTitle:forState:
  EXPECT_STREQ(button->titleForState(UIControlStateDisabled).UTF8String(), "Normal");
  EXPECT_STREQ(button->currentTitle().UTF8String(), "Normal");
  button->setHighlighted(YES);
  EXPECT_STREQ(button->currentTitle().UTF8String(), "Pressed");
  EXPECT_STREQ(button->titleLabel().text().UTF8String(), "Pressed");
  button->setHighlighted(NO);
  button->setEnabled(NO);
  EXPECT_STREQ(button->titleLabel().text().UTF8String(), "Normal");
}

TEST_F(Button, ColorsItsTitleByState) {
  button->setTitle_forState("Title"_ns, UIControlStateNormal);
  EXPECT_TRUE(button->currentTitleColor() == UIColor::whiteColor());  // confirmed: UIButton's default
  button->setTitleColor_forState(UIColor::redColor(), UIControlStateNormal);
  button->setTitleColor_forState(UIColor::grayColor(), UIControlStateDisabled);
  button->setTitleShadowColor_forState(UIColor::blueColor(), UIControlStateNormal);
  EXPECT_TRUE(button->titleLabel().textColor() == UIColor::redColor());
  button->setEnabled(NO);
  EXPECT_TRUE(button->titleLabel().textColor() == UIColor::grayColor());
  EXPECT_TRUE(button->titleLabel().shadowColor() == UIColor::blueColor());
}

TEST_F(Button, HasItsTitleInTheMiddle) {
  button->setFrame({{0, 0}, {200, 60}});
  button->setTitle_forState("Title"_ns, UIControlStateNormal);
  button->layoutIfNeeded();
  const CGSize room = button->titleLabel().sizeThatFits({});
  EXPECT_EQ(button->titleLabel().frame().size, room);
  EXPECT_NEAR(button->titleLabel().center().x, 100, 0.5);
  EXPECT_NEAR(button->titleLabel().center().y, 30, 0.5);
}

}  // namespace
}  // namespace test
