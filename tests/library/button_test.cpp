// BButton: what its initialisers set up, its colours and radius, the looks of its title, icons.
#include "controls/button.hpp"

#include <gtest/gtest.h>

#include "controls/button_colors.hpp"
#include "controls/icon_string.hpp"
#include "panel/popup_view.hpp"
#include "simulator/uikit/base/coding.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "tests/library/key_value.hpp"
#include "tests/support/archive.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::Strong;
using sim::uikit::colorOf;
using test::Home;
using tilo::BButton;
using tilo::ButtonColor;

constexpr CGRect frame{{10, 20}, {100, 40}};
constexpr NSUInteger icon = 0xF139;
constexpr const char* iconText = "\uF139";

Strong<BButton> makeButton(NSUInteger type = 0, NSUInteger style = 1) {
  return bridge::make<BButton, &BButton::initWithFrame_type_style>(frame, type, style);
}

Strong<BButton> colored(UIColor color, NSUInteger style = 1) {
  return bridge::make<BButton, &BButton::initWithFrame_color_style>(frame, color, style);
}

UIColor light() { return UIColor::colorWithRed_green_blue_alpha(0.9, 0.8, 0.7, 1); }
UIColor dark() { return UIColor::colorWithRed_green_blue_alpha(0.2, 0.3, 0.4, 1); }
sim::Color grey(float level, float alpha) { return {level, level, level, alpha}; }

// Only panels register the font of the icons.
void loadIconFont() { bridge::make<tilo::RQPopupView, &NSObject::init>(); }

std::string titleOf(UIButton button) { return button.titleForState(UIControlStateNormal).UTF8String(); }

sim::Color titleColor(UIButton button, NSUInteger state = UIControlStateNormal) {
  return colorOf(button.titleColorForState(state));
}

void expectFlatDefaults(BButton button) {
  EXPECT_EQ(button.buttonStyle(), 1u);
  EXPECT_TRUE(button.shouldShowDisabled());
  EXPECT_EQ(colorOf(button.color()), colorOf(ButtonColor::bb_defaultColorV3()));
  EXPECT_EQ(colorOf(button.backgroundColor()), sim::clearColor);
}

TEST(Button, IsFlatAndWhiteAtFirst) {
  Home home;
  auto button = bridge::make<BButton, &UIView::initWithFrame>(frame);
  EXPECT_EQ(button->frame(), frame);
  expectFlatDefaults(button);
  EXPECT_STREQ(button->titleLabel().font().fontName().UTF8String(), ".SFUIText");
  EXPECT_EQ(button->titleLabel().font().pointSize(), 17);
  EXPECT_EQ(button->titleLabel().shadowOffset(), (CGSize{0, 0}));
  EXPECT_EQ(titleColor(button), sim::blackColor);
}

TEST(Button, IsSetUpByThePlainInitialiserToo) {
  Home home;
  auto button = bridge::make<BButton, &NSObject::init>();
  EXPECT_EQ(button->frame(), CGRect{});
  expectFlatDefaults(button);
}

TEST(Button, HasTheColorOfItsTypeAndStyle) {
  Home home;
  for (const NSUInteger style : {0, 1})
    for (NSUInteger type = 0; type < 12; ++type) {
      auto button = makeButton(type, style);
      EXPECT_EQ(button->frame(), frame);
      EXPECT_EQ(button->buttonStyle(), style);
      EXPECT_EQ(colorOf(button->color()), colorOf(BButton::colorForButtonType_style(type, style)));
      EXPECT_EQ(button->titleLabel().font().pointSize(), 17);
    }
}

TEST(Button, OfTheOlderLookHasABoldTitleWithItsShadowAbove) {
  Home home;
  auto button = colored(dark(), 0);
  EXPECT_STREQ(button->titleLabel().font().fontName().UTF8String(), ".SFUIText-Semibold");
  EXPECT_EQ(button->titleLabel().font().pointSize(), 17);
  EXPECT_EQ(button->titleLabel().shadowOffset(), (CGSize{0, -1}));
}

TEST(Button, ThatChangesToTheFlatLookLosesItsTitlesShadow) {
  Home home;
  auto button = colored(dark(), 0);
  button->setTextAttributesForStyle(1);
  EXPECT_STREQ(button->titleLabel().font().fontName().UTF8String(), ".SFUIText");
  EXPECT_EQ(button->titleLabel().shadowOffset(), (CGSize{0, 0}));
}

TEST(Button, OfAnyColorKeepsThatColor) {
  Home home;
  for (const NSUInteger style : {0, 1, 2}) {
    auto button = colored(dark(), style);
    EXPECT_EQ(colorOf(button->color()), colorOf(dark()));
    EXPECT_EQ(button->buttonStyle(), style);
    EXPECT_TRUE(button->shouldShowDisabled());
  }
}

TEST(Button, WithAnIconHasItInTheMiddleInTheIconFont) {
  Home home;
  loadIconFont();
  using Type = BButton;
  auto ofType = bridge::make<Type, &Type::initWithFrame_type_style_icon_fontSize>(
      frame, NSUInteger{1}, NSUInteger{0}, icon, CGFloat{33});
  auto ofColor = bridge::make<Type, &Type::initWithFrame_color_style_icon_fontSize>(
      frame, dark(), NSUInteger{1}, icon, CGFloat{12});
  for (const BButton button : {ofType.get(), ofColor.get()}) {
    EXPECT_EQ(button.frame(), frame);
    EXPECT_STREQ(button.titleLabel().font().fontName().UTF8String(), "FontAwesome");
    EXPECT_EQ(button.titleLabel().textAlignment(), NSTextAlignmentCenter);
    EXPECT_EQ(titleOf(button), iconText);
  }
  EXPECT_EQ(ofType->titleLabel().font().pointSize(), 33);
  EXPECT_EQ(ofType->buttonStyle(), 0u);
  EXPECT_EQ(colorOf(ofType->color()), colorOf(ButtonColor::bb_primaryColorV2()));
  EXPECT_EQ(ofColor->titleLabel().font().pointSize(), 12);
  EXPECT_EQ(colorOf(ofColor->color()), colorOf(dark()));
}

TEST(Button, WithNothingButAnIconIsASquare) {
  Home home;
  loadIconFont();
  const BButton ofType = BButton::awesomeButtonWithOnlyIcon_type_style(icon, 3, 0);
  const BButton ofColor = BButton::awesomeButtonWithOnlyIcon_color_style(icon, dark(), 1);
  for (const BButton button : {ofType, ofColor}) {
    EXPECT_EQ(button.frame(), (CGRect{{0, 0}, {40, 40}}));
    EXPECT_EQ(button.titleLabel().font().pointSize(), 20);
    EXPECT_EQ(titleOf(button), iconText);
  }
  EXPECT_EQ(ofType.buttonStyle(), 0u);
  EXPECT_EQ(colorOf(ofType.color()), colorOf(ButtonColor::bb_successColorV2()));
  EXPECT_EQ(ofColor.buttonStyle(), 1u);
  EXPECT_EQ(colorOf(ofColor.color()), colorOf(dark()));
}

struct OwnButton : bridge::Face<"TestOwnButton", BButton> {};

TEST(Button, IsOfTheClassThatIsAskedForIt) {
  Home home;
  bridge::Implementation<OwnButton>::define<BButton>();
  const Class own = bridge::classNamed<OwnButton>();
  EXPECT_TRUE(bridge::isKindOf<OwnButton>(BButton::awesomeButtonWithOnlyIcon_type_style.on(own, icon, 0, 1)));
  EXPECT_TRUE(
      bridge::isKindOf<OwnButton>(BButton::awesomeButtonWithOnlyIcon_color_style.on(own, icon, dark(), 1)));
}

TEST(Button, IsNobodyElsesOnceItIsMade) {
  Home home;
  Strong<BButton> plain, ofType, ofIcon;
  {
    const bridge::Pool pool;
    plain = bridge::make<BButton, &UIView::initWithFrame>(frame);
    ofType = makeButton();
    ofIcon = retained(BButton::awesomeButtonWithOnlyIcon_type_style(icon, 0, 1));
    ofIcon->layoutIfNeeded();
  }
  EXPECT_EQ(plain->retainCount(), 1u);
  EXPECT_EQ(ofType->retainCount(), 1u);
  EXPECT_EQ(ofIcon->retainCount(), 1u);
}

BButton archivedAndBack(UIButton button) { return bridge::as<BButton>(test::archivedAndBack(button)); }

TEST(ArchivedButton, KeepsItsPlaceAndTitleAndIsSetUpAnew) {
  Home home;
  auto original = colored(dark(), 0);
  original->setTitle_forState("Title"_ns, UIControlStateNormal);
  original->tag.set(7);
  original->shouldShowDisabled.set(NO);
  original->backgroundColor.set(UIColor::redColor());
  const BButton button = archivedAndBack(original);
  ASSERT_TRUE(bridge::isKindOf<BButton>(button));
  EXPECT_EQ(button.frame(), frame);
  EXPECT_EQ(button.tag(), 7);
  EXPECT_EQ(titleOf(button), "Title");
  expectFlatDefaults(button);
  EXPECT_EQ(titleColor(button), sim::blackColor);
}

TEST(ArchivedButton, HasNoTitleAttributesOfItsStyle) {
  Home home;
  auto original = makeButton();
  const BButton button = archivedAndBack(original);
  EXPECT_EQ(button.titleLabel().font().pointSize(), 18) << "UIButton's own";
}

TEST(Button, TakesAnotherTypesColorInItsStyle) {
  Home home;
  for (const NSUInteger style : {0, 1}) {
    auto button = makeButton(0, style);
    button->setType(tilo::BButtonTypeDanger);
    EXPECT_EQ(colorOf(button->color()),
              colorOf(style ? ButtonColor::bb_dangerColorV3() : ButtonColor::bb_dangerColorV2()));
  }
}

TEST(Button, KeepsItsColorAndFontInAnotherStyle) {
  Home home;
  auto button = makeButton(tilo::BButtonTypePrimary, 1);
  button->setStyle(0);
  EXPECT_EQ(button->buttonStyle(), 0u);
  EXPECT_EQ(colorOf(button->color()), colorOf(ButtonColor::bb_primaryColorV3()));
  EXPECT_STREQ(button->titleLabel().font().fontName().UTF8String(), ".SFUIText");
}

TEST(Button, LeavesItsTitleAsItIsForAnUnknownStyle) {
  Home home;
  auto button = makeButton();
  button->titleLabel().font.set(UIFont::systemFontOfSize(9));
  button->titleLabel().shadowOffset.set({3, 4});
  button->setTextAttributesForStyle(2);
  EXPECT_EQ(button->titleLabel().font().pointSize(), 9);
  EXPECT_EQ(button->titleLabel().shadowOffset(), (CGSize{3, 4}));
}

TEST(Button, OfALightColorHasABlackTitle) {
  Home home;
  auto button = colored(light());
  EXPECT_EQ(titleColor(button), sim::blackColor);
  EXPECT_EQ(colorOf(button->titleShadowColorForState(UIControlStateNormal)), grey(1, 0.6f));
  EXPECT_EQ(titleColor(button, UIControlStateDisabled), grey(0.4f, 0.5f));
}

TEST(Button, OfADarkColorHasAWhiteTitle) {
  Home home;
  auto button = colored(dark());
  EXPECT_EQ(titleColor(button), sim::whiteColor);
  EXPECT_EQ(colorOf(button->titleShadowColorForState(UIControlStateNormal)), grey(0, 0.6f));
  EXPECT_EQ(titleColor(button, UIControlStateDisabled), grey(1, 0.5f));
}

TEST(Button, ShowsThatItIsDisabledOrNot) {
  Home home;
  for (const UIColor color : {light(), dark()}) {
    auto button = colored(color);
    const bool isLight = bridge::as<ButtonColor>(color).bb_isLightColor();
    button->shouldShowDisabled.set(NO);
    EXPECT_FALSE(button->shouldShowDisabled());
    EXPECT_EQ(titleColor(button, UIControlStateDisabled), isLight ? sim::blackColor : sim::whiteColor);
    button->shouldShowDisabled.set(YES);
    EXPECT_TRUE(button->shouldShowDisabled());
    EXPECT_EQ(titleColor(button, UIControlStateDisabled), isLight ? grey(0.4f, 0.5f) : grey(1, 0.5f));
  }
}

TEST(Button, ThatHidesItsDisabledStateKeepsThatTitleColorWithAnotherColor) {
  Home home;
  auto button = colored(light());
  button->shouldShowDisabled.set(NO);
  button->color.set(dark());
  EXPECT_EQ(titleColor(button), sim::whiteColor);
  EXPECT_EQ(titleColor(button, UIControlStateDisabled), sim::blackColor);
}

TEST(Button, IsHighlightedAndEnabledAsAnyControl) {
  Home home;
  auto button = makeButton();
  button->highlighted.set(YES);
  EXPECT_TRUE(button->highlighted());
  button->enabled.set(NO);
  EXPECT_FALSE(button->enabled());
  EXPECT_EQ(button->state(), UIControlStateHighlighted | UIControlStateDisabled);
}

TEST(CornerRadius, IsThatOfTheStyle) {
  Home home;
  EXPECT_EQ(BButton::cornerRadiusForStyle(0).floatValue(), 6);
  EXPECT_EQ(BButton::cornerRadiusForStyle(1).floatValue(), 4);
  ASSERT_TRUE(BButton::cornerRadiusForStyle(2));
  EXPECT_EQ(BButton::cornerRadiusForStyle(2).floatValue(), 0);
  EXPECT_EQ(makeButton(0, 0)->buttonCornerRadius().floatValue(), 6);
  EXPECT_EQ(makeButton(0, 1)->buttonCornerRadius().floatValue(), 4);
  EXPECT_EQ(makeButton(0, 2)->buttonCornerRadius().floatValue(), 0);
}

TEST(CornerRadius, StaysOnceItWasAskedFor) {
  Home home;
  auto asked = makeButton(0, 0), unasked = makeButton(0, 0);
  asked->buttonCornerRadius();
  asked->setStyle(1);
  unasked->setStyle(1);
  EXPECT_EQ(asked->buttonCornerRadius().floatValue(), 6);
  EXPECT_EQ(unasked->buttonCornerRadius().floatValue(), 4);
}

TEST(CornerRadius, MayBeTheButtonsOwn) {
  Home home;
  auto button = makeButton();
  button->buttonCornerRadius.set(NSNumber::numberWithFloat(11));
  EXPECT_EQ(button->buttonCornerRadius().floatValue(), 11);
  button->buttonCornerRadius.set({});
  EXPECT_EQ(button->buttonCornerRadius().floatValue(), 4);
}

TEST(CornerRadius, MayBeThatOfTheAppearance) {
  Home home;
  using Appearance = bridge::ClassMethod<"BButton", "appearance", BButton()>;
  auto own = makeButton();
  own->buttonCornerRadius.set(NSNumber::numberWithFloat(11));
  Appearance()().buttonCornerRadius.set(NSNumber::numberWithFloat(9));
  EXPECT_EQ(makeButton(0, 0)->buttonCornerRadius().floatValue(), 9);
  EXPECT_EQ(makeButton(0, 1)->buttonCornerRadius().floatValue(), 9);
  EXPECT_EQ(own->buttonCornerRadius().floatValue(), 11);
  auto before = makeButton();
  before->buttonCornerRadius();
  Appearance()().buttonCornerRadius.set({});
  EXPECT_EQ(before->buttonCornerRadius().floatValue(), 9);
  EXPECT_EQ(makeButton()->buttonCornerRadius().floatValue(), 4);
}

TEST(Icon, IsTheCharacterOfItsLowSixteenBits) {
  Home home;
  using tilo::IconString;
  EXPECT_STREQ(IconString::fa_stringForFontAwesomeIcon(0xF139).UTF8String(), "\uF139");
  EXPECT_STREQ(IconString::fa_stringForFontAwesomeIcon(0x3F067).UTF8String(), "\uF067");
  EXPECT_STREQ(IconString::fa_stringForFontAwesomeIcon('A').UTF8String(), "A");
  EXPECT_EQ(IconString::fa_stringForFontAwesomeIcon(0xF139).length(), 1u);
}

TEST(Icon, StandsBeforeOrAfterTheTitle) {
  Home home;
  auto before = makeButton(), after = makeButton();
  before->setTitle_forState(" Up "_ns, UIControlStateNormal);
  after->setTitle_forState(" Up "_ns, UIControlStateNormal);
  before->addAwesomeIcon_beforeTitle(icon, YES);
  after->addAwesomeIcon_beforeTitle(icon, NO);
  EXPECT_EQ(titleOf(before), "\uF139  Up ");
  EXPECT_EQ(titleOf(after), " Up  \uF139");
}

TEST(Icon, StandsAloneWithoutATitle) {
  Home home;
  for (const BOOL before : {YES, NO})
    for (const NSString title : {NSString(), ""_ns, " "_ns, " \n\t "_ns}) {
      auto button = makeButton();
      button->setTitle_forState(title, UIControlStateNormal);
      button->addAwesomeIcon_beforeTitle(icon, before);
      EXPECT_EQ(titleOf(button), iconText);
    }
}

TEST(Icon, TakesTheTitlesSizeInItsOwnFont) {
  Home home;
  loadIconFont();
  auto button = makeButton();
  button->titleLabel().font.set(UIFont::systemFontOfSize(23));
  button->addAwesomeIcon_beforeTitle(icon, YES);
  EXPECT_STREQ(button->titleLabel().font().fontName().UTF8String(), "FontAwesome");
  EXPECT_EQ(button->titleLabel().font().pointSize(), 23);
}

TEST(Icon, IsSetForTheNormalStateOnly) {
  Home home;
  auto button = makeButton();
  button->setTitle_forState("Off"_ns, UIControlStateDisabled);
  button->setTitle_forState("On"_ns, UIControlStateNormal);
  button->addAwesomeIcon_beforeTitle(icon, YES);
  EXPECT_STREQ(button->titleForState(UIControlStateDisabled).UTF8String(), "Off");
  EXPECT_EQ(titleOf(button), "\uF139 On");
}

TEST(TitleText, IsTrimmedAtBothEnds) {
  Home home;
  auto button = makeButton();
  EXPECT_STREQ(button->stringByTrimingWhiteSpaceFromString(" \n a b\t\r\n"_ns).UTF8String(), "a b");
  EXPECT_STREQ(button->stringByTrimingWhiteSpaceFromString(" \n "_ns).UTF8String(), "");
}

TEST(TitleText, IsEmptyWhenNothingButSpaceIsInIt) {
  Home home;
  auto button = makeButton();
  EXPECT_TRUE(button->isStringEmpty(""_ns));
  EXPECT_TRUE(button->isStringEmpty(" \t\n"_ns));
  EXPECT_TRUE(button->isStringEmpty({}));
  EXPECT_FALSE(button->isStringEmpty(" a "_ns));
}

TEST(Button, HasItsPropertiesUnderTheirNames) {
  Home home;
  auto button = makeButton(tilo::BButtonTypeInfo, 0);
  const auto coding = test::coding(button.get());
  EXPECT_EQ(colorOf(bridge::as<UIColor>(coding.valueForKey("color"_ns))),
            colorOf(ButtonColor::bb_infoColorV2()));
  EXPECT_EQ(bridge::as<NSNumber>(coding.valueForKey("buttonStyle"_ns)).intValue(), 0);
  EXPECT_EQ(bridge::as<NSNumber>(coding.valueForKey("buttonCornerRadius"_ns)).intValue(), 6);
  EXPECT_TRUE(bridge::as<NSNumber>(coding.valueForKey("shouldShowDisabled"_ns)).boolValue());
}

}  // namespace
