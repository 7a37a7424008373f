// Buttons.
#include "platform/uikit/button.hpp"

#include "platform/uikit/image_view.hpp"
#include "simulator/uikit/base/coding.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/image.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"
#include "tests/support/archive.hpp"

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
  button->highlighted.set(YES);
  EXPECT_STREQ(button->currentTitle().UTF8String(), "Pressed");
  EXPECT_STREQ(button->titleLabel().text().UTF8String(), "Pressed");
  button->highlighted.set(NO);
  button->enabled.set(NO);
  EXPECT_STREQ(button->titleLabel().text().UTF8String(), "Normal");
}

TEST_F(Button, ColorsItsTitleByState) {
  button->setTitle_forState("Title"_ns, UIControlStateNormal);
  EXPECT_TRUE(button->currentTitleColor() == UIColor::whiteColor());  // confirmed: UIButton's default
  button->setTitleColor_forState(UIColor::redColor(), UIControlStateNormal);
  button->setTitleColor_forState(UIColor::grayColor(), UIControlStateDisabled);
  button->setTitleShadowColor_forState(UIColor::blueColor(), UIControlStateNormal);
  EXPECT_TRUE(button->titleLabel().textColor() == UIColor::redColor());
  button->enabled.set(NO);
  EXPECT_TRUE(button->titleLabel().textColor() == UIColor::grayColor());
  EXPECT_TRUE(button->titleLabel().shadowColor() == UIColor::blueColor());
}

TEST_F(Button, HasNoLabelInItWithoutATitle) {
  EXPECT_EQ(button->subviews().count(), 0u);  // assumed
  EXPECT_FALSE(button->currentTitle());
  button->setTitle_forState("Title"_ns, UIControlStateNormal);
  EXPECT_EQ(button->subviews().count(), 1u);
  EXPECT_TRUE(button->titleLabel().superview() == button);
}

TEST_F(Button, KeepsACopyOfItsTitle) {
  struct NSMutableString : bridge::Face<"NSMutableString", NSString> {
    MESSAGE Method<"appendString:", void(NSString)> appendString;
  };
  auto title = make<NSMutableString, &NSObject::init>();
  title->appendString("one"_ns);
  button->setTitle_forState(title, UIControlStateNormal);
  title->appendString(" two"_ns);
  EXPECT_STREQ(button->currentTitle().UTF8String(), "one");  // assumed
}

TEST_F(Button, TitleLabelStartsAsDocumented) {
  EXPECT_EQ(button->titleLabel().font().pointSize(), 18);  // assumed: of a button made in code
  EXPECT_EQ(button->titleLabel().lineBreakMode(), NSLineBreakByTruncatingMiddle);
  // confirmed: Apple documentation of titleShadowOffset
  EXPECT_EQ(button->titleLabel().shadowOffset(), (CGSize{0, 0}));
  EXPECT_FALSE(button->opaque());
  EXPECT_EQ(button->buttonType(), UIButtonTypeCustom);
}

TEST_F(Button, OfTheSystemsTypeIsInItsTint) {
  auto system = makeButton(UIButtonTypeSystem);
  EXPECT_EQ(system->buttonType(), UIButtonTypeSystem);
  system->setTitle_forState("Title"_ns, UIControlStateNormal);
  const auto shown = [&] { return sim::uikit::colorOf(system->currentTitleColor()); };
  EXPECT_EQ(shown(), sim::rgb(0x007aff));  // confirmed: Apple documentation of tintColor
  system->tintColor.set(UIColor::redColor());
  EXPECT_EQ(shown(), sim::uikit::colorOf(UIColor::redColor()));
  system->setTitleColor_forState(UIColor::greenColor(), UIControlStateNormal);
  EXPECT_EQ(shown(), sim::uikit::colorOf(UIColor::greenColor()));
}

TEST_F(Button, OfTheSystemsTypeFadesWhileItIsPressed) {
  auto system = makeButton(UIButtonTypeSystem);
  for (const UIButton one : {system.get(), button.get()}) {
    one.setTitle_forState("Title"_ns, UIControlStateNormal);
    one.highlighted.set(YES);
  }
  EXPECT_EQ(system->titleLabel().alpha(), 0.2);  // assumed
  EXPECT_EQ(button->titleLabel().alpha(), 1);    // assumed
  system->highlighted.set(NO);
  EXPECT_EQ(system->titleLabel().alpha(), 1);
}

TEST_F(Button, OfTheSystemsTypeIsGreyWhileItIsDisabled) {
  auto system = makeButton(UIButtonTypeSystem);
  system->enabled.set(NO);
  const sim::Color shown = sim::uikit::colorOf(system->currentTitleColor());
  EXPECT_EQ(shown.red, shown.blue);  // assumed
  EXPECT_LT(shown.alpha, 0.5);
}

TEST_F(Button, HasItsTitleInTheMiddle) {
  button->frame.set({{0, 0}, {200, 60}});
  button->setTitle_forState("Title"_ns, UIControlStateNormal);
  button->layoutIfNeeded();
  const CGSize room = button->titleLabel().sizeThatFits({});
  EXPECT_EQ(button->titleLabel().frame().size, room);
  EXPECT_NEAR(button->titleLabel().center().x, 100, 0.5);
  EXPECT_NEAR(button->titleLabel().center().y, 30, 0.5);
}

TEST_F(Button, CutsATitleThatIsTooLong) {
  button->frame.set({{0, 0}, {60, 60}});
  button->setTitle_forState("A title that is far too long"_ns, UIControlStateNormal);
  button->layoutIfNeeded();
  EXPECT_EQ(button->titleLabel().frame().size.width, 60);
}

class ButtonWithImage : public Button {
 protected:
  ButtonWithImage() {
    button->frame.set({{0, 0}, {200, 60}});
    button->setImage_forState(image, UIControlStateNormal);
    button->layoutIfNeeded();
  }

  UIImageView imageView() { return bridge::as<UIImageView>(button->subviews().objectAtIndex(0)); }

  Strong<UIImage> image = sim::uikit::makeImage(sim::makeImage(40, 20), 2);
};

TEST_F(ButtonWithImage, HasItInTheMiddle) {
  EXPECT_EQ(imageView().frame(), (CGRect{{90, 25}, {20, 10}}));
  EXPECT_EQ(button->sizeThatFits({}), (CGSize{20, 10}));  // assumed
}

TEST_F(ButtonWithImage, HasItLeftOfTheTitle) {
  button->setTitle_forState("Title"_ns, UIControlStateNormal);
  button->layoutIfNeeded();
  const CGRect title = button->titleLabel().frame(), shown = imageView().frame();
  // confirmed: Apple documentation of UIButton: the image precedes the title
  EXPECT_NEAR(shown.origin.x + shown.size.width, title.origin.x, 0.5);
  EXPECT_NEAR(shown.origin.x, 200 - title.origin.x - title.size.width, 1);
}

TEST_F(ButtonWithImage, DimsItWhereAStateHasNoneOfItsOwn) {
  button->enabled.set(NO);
  EXPECT_LT(imageView().alpha(), 1);  // confirmed: Apple documentation of adjustsImageWhenDisabled
  EXPECT_TRUE(imageView().image() == image);
  auto other = sim::uikit::makeImage(sim::makeImage(40, 20), 2);
  button->setImage_forState(other, UIControlStateDisabled);
  EXPECT_EQ(imageView().alpha(), 1);
  EXPECT_TRUE(imageView().image() == other);
}

TEST_F(Button, AsksForTheRoomOfItsTitle) {
  EXPECT_EQ(button->sizeThatFits({}), (CGSize{30, 34}));  // assumed
  button->setTitle_forState("A title"_ns, UIControlStateNormal);
  const CGSize title = button->titleLabel().sizeThatFits({});
  EXPECT_EQ(button->sizeThatFits({}), (CGSize{title.width, title.height + 12}));  // assumed
}

using PressedButton = Fingers;

TEST_F(PressedButton, ShowsItsStateWhileTheFingerIsOnIt) {
  const UIButton button = UIButton::buttonWithType(UIButtonTypeCustom);
  button.frame.set({{100, 100}, {100, 50}});
  button.setTitle_forState("Up"_ns, UIControlStateNormal);
  button.setTitle_forState("Down"_ns, UIControlStateHighlighted);
  window->addSubview(button);
  down({150, 125});
  EXPECT_STREQ(button.titleLabel().text().UTF8String(), "Down");
  EXPECT_TRUE(button.isTracking());
  up({150, 125});
  EXPECT_STREQ(button.titleLabel().text().UTF8String(), "Up");
}

UIButton archivedAndBack(UIView view) { return bridge::as<UIButton>(test::archivedAndBack(view)); }

TEST_F(Button, IsArchivedWithItsLooks) {
  auto original = makeButton(UIButtonTypeSystem);
  original->frame.set({{10, 20}, {30, 40}});
  original->alpha.set(0.5);
  original->setTitle_forState("Title"_ns, UIControlStateNormal);
  original->setTitle_forState("Off"_ns, UIControlStateDisabled);
  original->setTitleColor_forState(UIColor::redColor(), UIControlStateNormal);
  original->backgroundColor.set(UIColor::grayColor());
  original->autoresizingMask.set(18);
  const UIButton copy = archivedAndBack(original);
  EXPECT_EQ(copy.buttonType(), UIButtonTypeSystem);
  EXPECT_EQ(copy.frame(), (CGRect{{10, 20}, {30, 40}}));
  EXPECT_EQ(copy.alpha(), 0.5);
  EXPECT_EQ(copy.autoresizingMask(), 18u);
  EXPECT_STREQ(copy.currentTitle().UTF8String(), "Title");
  EXPECT_STREQ(copy.titleForState(UIControlStateDisabled).UTF8String(), "Off");
  EXPECT_EQ(sim::uikit::colorOf(copy.currentTitleColor()), sim::uikit::colorOf(UIColor::redColor()));
  EXPECT_EQ(sim::uikit::colorOf(copy.backgroundColor()), sim::uikit::colorOf(UIColor::grayColor()));
  EXPECT_FALSE(copy.opaque());
  EXPECT_EQ(copy.subviews().count(), 1u);
}

}  // namespace
}  // namespace test
