// The panel's card: how it is built, and its looks.
#include <gtest/gtest.h>

#include <map>

#include "panel/color_manager.hpp"
#include "platform/uikit/layer.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using sim::Json;
using test::PanelHome;
using tilo::RQColorManager;
using tilo::RQPopupView;

constexpr double approximately = 1e-6;

std::vector<double> components(UIColor color) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  color.getRed_green_blue_alpha(&red, &green, &blue, &alpha);
  return {red * 255, green * 255, blue * 255, alpha};
}

std::vector<double> components(CGColorRef color) {
  const CGFloat* values = CGColorGetComponents(color);
  return {values, values + CGColorGetNumberOfComponents(color)};
}

// A view of the card: what is absent does not matter.
struct Part {
  const char* className;
  std::vector<double> frame;
  double alpha = 1;
  Json background = nullptr, text = nullptr;
};

void expectPart(const Json& found, const Part& expected) {
  SCOPED_TRACE(expected.className);
  EXPECT_EQ(found["class"], expected.className);
  for (size_t i = 0; i < 4; ++i)
    EXPECT_NEAR(found["frame"][i].get<double>(), expected.frame[i], approximately) << found["frame"];
  EXPECT_NEAR(found["alpha"].get<double>(), expected.alpha, approximately);
  EXPECT_EQ(found["background"], expected.background);
  EXPECT_EQ(found["transform"], Json({1, 0, 0, 1, 0, 0}));
  EXPECT_EQ(found["hidden"], false);
}

TEST(PanelShell, HoldsItsPartsInTheirOrderAndPlaces) {
  PanelHome home;
  home.open();
  Json card = home.shown()["views"];
  expectPart(card, {"RQPopupView", {37.5, 138.5, 300, 390}, 1, {250, 250, 250, 1}});
  ASSERT_EQ(card["children"].size(), 1u);
  const Json& content = card["children"][0];
  expectPart(content, {"UIView", {0, 0, 300, 390}});
  const Part parts[] = {
      {"SBUIChevronView", {135, 10, 50, 30}, 0.4},
      {"SBUIChevronView", {135, 17, 50, 30}, 0.4},
      {"SBCloseBoxView", {265, 8, 24, 24}},
      {"BButton", {10, 6, 30, 30}, 0.7},
      {"UIView", {0, 42.5, 300, 1}, 0.6, {0, 0, 0, 1}},
      {"UIScrollView", {0, 30, 300, 350}},
      {"UIPageControl", {100, 365, 100, 30}},
  };
  ASSERT_EQ(content["children"].size(), std::size(parts));
  for (size_t i = 0; i < std::size(parts); ++i) expectPart(content["children"][i], parts[i]);
}

TEST(PanelShell, IsTheSameOnEveryScreenButForItsPlace) {
  PanelHome home({}, {}, "iPad Air 2");
  home.open();
  expectPart(home.shown()["views"], {"RQPopupView", {234, 317, 300, 390}, 1, {250, 250, 250, 1}});
}

TEST(PanelShell, ClipsItsContentAndResizesItWithTheCard) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  EXPECT_TRUE(panel.autoresizesSubviews());
  EXPECT_TRUE(panel.userInteractionEnabled());
  EXPECT_FALSE(panel.clipsToBounds());
  EXPECT_TRUE(panel.contentView().clipsToBounds());
  EXPECT_EQ(panel.contentView().autoresizingMask(), 18u);
  EXPECT_EQ(panel.contentView().superview(), panel);
}

TEST(PanelShell, HasRoundCornersAndASoftShadowAndIsDrawnAsOneBitmap) {
  PanelHome home;
  home.open();
  CALayer layer = home.panel().layer();
  EXPECT_EQ(layer.cornerRadius(), 20);
  EXPECT_EQ(components(layer.shadowColor()), components(UIColor::blackColor().CGColor()));
  EXPECT_EQ(layer.shadowOpacity(), 0.5f);
  EXPECT_EQ(layer.shadowRadius(), 10);
  EXPECT_EQ(layer.shadowOffset(), (CGSize{3, 3}));
  EXPECT_TRUE(layer.shouldRasterize());
  EXPECT_EQ(layer.rasterizationScale(), 2);
}

TEST(PanelShell, IsStyledAgainWhateverHasBecomeOfItsShadow) {
  PanelHome home;
  home.open();
  CALayer layer = home.panel().layer();
  layer.shadowColor.set(UIColor::redColor().CGColor());
  layer.shadowOpacity.set(1);
  home.panel().addStyle();
  EXPECT_EQ(components(layer.shadowColor()), components(UIColor::blackColor().CGColor()));
  EXPECT_EQ(layer.shadowOpacity(), 0.5f);
}

TEST(PanelShell, IsRasterizedAtTheScreensOwnScale) {
  PanelHome home({}, {}, "iPhone 7 Plus");
  home.open();
  EXPECT_EQ(home.panel().layer().rasterizationScale(), 3);
}

TEST(PanelShell, PagesItsTwoPagesSideways) {
  PanelHome home;
  home.open();
  UIScrollView view = home.panel().scrollView();
  EXPECT_EQ(view.contentSize(), (CGSize{600, 350}));
  EXPECT_EQ(view.contentOffset(), (CGPoint{0, 0}));
  EXPECT_FALSE(view.showsHorizontalScrollIndicator());
  EXPECT_TRUE(view.scrollEnabled());
  EXPECT_TRUE(view.pagingEnabled());
  EXPECT_TRUE(view.userInteractionEnabled());
  EXPECT_EQ(view.delegate(), home.panel());
  EXPECT_EQ(components(view.backgroundColor()), components(UIColor::clearColor()));
}

TEST(PanelShell, ShowsTwoDotsThatDoNothing) {
  PanelHome home;
  home.open();
  UIPageControl dots = home.panel().pageControl();
  EXPECT_EQ(dots.numberOfPages(), 2);
  EXPECT_EQ(dots.currentPage(), 0);
  dots.sendActionsForControlEvents(~NSUInteger{0});
  EXPECT_EQ(home.panel().scrollView().contentOffset(), (CGPoint{0, 0}));
}

TEST(PanelShell, IsDraggedByAPanWhoseDelegateItIs) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  ASSERT_TRUE(panel.pan());
  EXPECT_EQ(panel.pan().view(), panel);
  EXPECT_EQ(panel.pan().delegate(), panel);
  EXPECT_EQ(panel.gestureRecognizers().count(), 1u);
  for (const char* name : {"gestureRecognizerShouldBegin:", "gestureRecognizer:shouldReceiveTouch:"})
    EXPECT_EQ(class_getMethodImplementation(bridge::classNamed<RQPopupView>(), sel_registerName(name)),
              class_getMethodImplementation(bridge::classNamed<UIView>(), sel_registerName(name)))
        << name;
  EXPECT_FALSE(panel.respondsToSelector(
      bridge::selector<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:">()));
}

TEST(PanelShell, LeavesWhatItDoesNotUseEmpty) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  EXPECT_FALSE(panel.moveTimer());
  EXPECT_FALSE(panel.toolBar());
  EXPECT_FALSE(panel.select());
  EXPECT_EQ(panel.rowSelected(), 0);
  for (UILabel label : {panel.horValue(), panel.vertValue(), panel.sideValue(), panel.topValue()})
    EXPECT_FALSE(label);
}

TEST(PanelShell, SharesTheLiveSettings) {
  PanelHome home;
  home.open();
  EXPECT_EQ(home.panel().rootObj(), home.controller().rootObj());
}

TEST(PanelShell, AnswersItsNamesAsItems) {
  PanelHome home;
  home.open();
  auto names = bridge::make<NSMutableArray, &NSObject::init>();
  home.panel().data.set(names);
  EXPECT_EQ(home.panel().items(), names.get());
}

class PanelToggle : public testing::TestWithParam<bool> {};

TEST_P(PanelToggle, BearsTheCircledChevronInTheControlsColour) {
  PanelHome home({GetParam() ? "isDarkMode=YES" : "isDarkMode=NO"});
  home.open();
  tilo::BButton toggle = home.panel().toggleButton();
  EXPECT_STREQ(toggle.titleForState(UIControlStateNormal).UTF8String(), "\uF139");
  EXPECT_STREQ(toggle.titleLabel().font().fontName().UTF8String(), "FontAwesome");
  EXPECT_EQ(toggle.titleLabel().font().pointSize(), 25);
  double component = GetParam() ? 255 : 0;
  EXPECT_EQ(components(toggle.titleColorForState(UIControlStateNormal)),
            (std::vector<double>{component, component, component, 1}));
  EXPECT_EQ(toggle.buttonStyle(), tilo::BButtonStyleBootstrapV3);
  EXPECT_EQ(components(toggle.color())[3], 0) << "a clear button";
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, PanelToggle, testing::Bool());

// Which classes of SpringBoard's stand in the header.
struct System {
  const char* version;
  const char* chevron;
  const char* closeBox;

  friend void PrintTo(const System& system, std::ostream* stream) { *stream << system.version; }
};

class PanelHeader : public testing::TestWithParam<System> {};

TEST_P(PanelHeader, IsMadeOfTheClassesOfTheSystem) {
  PanelHome home({}, {"--ios", GetParam().version}, "iPhone 6");
  home.open();
  const Json parts = home.shown()["views"]["children"][0]["children"];
  EXPECT_EQ(parts[0]["class"], GetParam().chevron);
  EXPECT_EQ(parts[1]["class"], GetParam().chevron);
  EXPECT_EQ(parts[2]["class"], GetParam().closeBox);
  EXPECT_EQ(parts.size(), 7u);
}

INSTANTIATE_TEST_SUITE_P(Versions, PanelHeader,
                         testing::Values(System{"8.4", "SBChevronView", "SBCloseBoxView"},
                                         System{"9.3.5", "SBChevronView", "SBCloseBoxView"},
                                         System{"10.0", "SBUIChevronView", "SBCloseBoxView"},
                                         System{"10.3.3", "SBUIChevronView", "SBCloseBoxView"},
                                         System{"11.0", "SBUIChevronView", "SBXCloseBoxView"},
                                         System{"12.1", "SBUIChevronView", "SBXCloseBoxView"}));

// Colours that chevrons were made with.
std::vector<std::vector<double>> chevronColors;

id noteChevronColor(id self, SEL, id color) {
  chevronColors.push_back(components(bridge::as<UIColor>(color)));
  return bridge::make<UIView, &UIView::initWithFrame>(CGRect{}).leak() ?: self;
}

class PanelChevrons : public testing::TestWithParam<bool> {};

TEST_P(PanelChevrons, AreMadeInTheControlsColour) {
  PanelHome home({GetParam() ? "isDarkMode=YES" : "isDarkMode=NO"});
  bridge::Slot slot;
  bridge::replaceMethod(objc_getClass("SBUIChevronView"), bridge::selector<"initWithColor:">(),
                        reinterpret_cast<IMP>(&noteChevronColor), slot);
  home.open();
  const double component = GetParam() ? 255 : 0;
  EXPECT_EQ(chevronColors, (std::vector<std::vector<double>>(2, {component, component, component, 1})));
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, PanelChevrons, testing::Bool());

// Steps of the construction, as they are sent.
std::vector<std::string> sent;
std::map<std::string, bridge::Slot> slots;

void note(id self, SEL selector) {
  std::string name = sel_getName(selector);
  sent.push_back(name);
  reinterpret_cast<void (*)(id, SEL)>(slots[name].implementation())(self, selector);
}

TEST(PanelShell, IsBuiltInItsOrder) {
  PanelHome home;
  const std::vector<std::string> steps{"addStyle",
                                       "loadMyCustomFont",
                                       "setupChevronView",
                                       "setupScrollView",
                                       "setupControlsForScrollView",
                                       "setupPageControl",
                                       "setupPickerView",
                                       "setupPanGesture",
                                       "getData",
                                       "styleView"};
  for (const std::string& step : steps)
    bridge::replaceMethod(bridge::classNamed<RQPopupView>(), sel_registerName(step.c_str()),
                          reinterpret_cast<IMP>(&note), slots[step]);
  home.open();
  EXPECT_EQ(sent, steps);
}

// Backgrounds that the card was given, and whether it had its settings then.
struct Given {
  std::vector<double> color;
  bool hadSettings;
  bool operator==(const Given&) const = default;
};
std::vector<Given> given;

void noteBackground(RQPopupView self, UIColor color) {
  given.push_back({components(color), static_cast<bool>(self.rootObj())});
  bridge::original<noteBackground>(self, color);
}

TEST(PanelShell, BeginsWithThePalettesFirstColourWhateverIsStored) {
  PanelHome home({"qsBackgroundColor=6", "isDarkMode=NO"});
  test::standIn<RQPopupView, bridge::setterOf<&UIView::backgroundColor>, noteBackground>();
  home.open();
  EXPECT_EQ(given, (std::vector<Given>{{{250, 250, 250, 1}, false}, {{249, 84, 115, 1}, true}}));
}

constexpr int palette[][3] = {{250, 250, 250}, {178, 209, 246}, {255, 205, 180},
                              {255, 238, 180}, {175, 249, 175}, {249, 175, 216},
                              {249, 84, 115},  {218, 150, 243}, {125, 238, 205}};

TEST(ColorManager, HasNineColoursAndADarkOne) {
  PanelHome home;
  NSArray colors = RQColorManager::colors();
  ASSERT_EQ(colors.count(), std::size(palette));
  for (NSUInteger i = 0; i < std::size(palette); ++i) {
    auto found = components(bridge::as<UIColor>(colors.objectAtIndex(i)));
    for (size_t n = 0; n < 3; ++n) EXPECT_NEAR(found[n], palette[i][n], approximately) << i;
    EXPECT_EQ(found[3], 1);
  }
  EXPECT_EQ(components(RQColorManager::darkModeBlack()), (std::vector<double>{30, 30, 30, 1}));
}

TEST(ColorManager, MakesItsColoursAnewEveryTime) {
  PanelHome home;
  EXPECT_NE(RQColorManager::darkModeBlack().raw, RQColorManager::darkModeBlack().raw);
  EXPECT_NE(RQColorManager::colors().objectAtIndex(3).raw, RQColorManager::colors().objectAtIndex(3).raw);
}

class PanelColor : public testing::TestWithParam<int> {};

TEST_P(PanelColor, IsThatOfTheStoredIndex) {
  PanelHome home({"qsBackgroundColor=" + std::to_string(GetParam())});
  home.open();
  EXPECT_EQ(home.shown()["background"], Json(palette[GetParam()]));
  EXPECT_EQ(home.shown()["dark"], false);
}

INSTANTIATE_TEST_SUITE_P(Palette, PanelColor, testing::Range(0, 9));

TEST(PanelColors, AreThePalettesFirstWithoutAnIndex) {
  PanelHome home;
  home.open();
  EXPECT_EQ(home.shown()["background"], Json(palette[0]));
}

TEST(PanelColors, AreDarkWhateverTheIndex) {
  PanelHome home({"isDarkMode=YES", "qsBackgroundColor=6"});
  home.open();
  EXPECT_EQ(home.shown()["background"], Json({30, 30, 30}));
  EXPECT_EQ(home.shown()["dark"], true);
}

TEST(PanelColors, AreDarkWithoutAnIndexToo) {
  PanelHome home({"isDarkMode=YES"});
  home.open();
  EXPECT_EQ(home.shown()["background"], Json({30, 30, 30}));
}

TEST(PanelColors, AreDarkEvenForAnIndexBeyondThePalette) {
  PanelHome home({"isDarkMode=YES", "qsBackgroundColor=9"});
  home.open();
  EXPECT_EQ(home.shown()["background"], Json({30, 30, 30}));
}

// White on dark, black on light: separator, toggle and captions.
class PanelControls : public testing::TestWithParam<bool> {};

TEST_P(PanelControls, AreOfOneColour) {
  PanelHome home({GetParam() ? "isDarkMode=YES" : "isDarkMode=NO", "qsBackgroundColor=4"});
  home.open();
  int component = GetParam() ? 255 : 0;
  Json color{component, component, component, 1};
  const Json parts = home.shown()["views"]["children"][0]["children"];
  EXPECT_EQ(parts[3]["children"][0]["textColor"], color);
  EXPECT_EQ(parts[4]["background"], color);
  EXPECT_EQ(parts[5]["children"][0]["text"], "Horizontal Padding");
  EXPECT_EQ(parts[5]["children"][0]["textColor"], color);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, PanelControls, testing::Bool());

class BeyondThePalette : public testing::TestWithParam<const char*> {};

TEST_P(BeyondThePalette, TheIndexTakesItsFirst) {
  PanelHome home({GetParam()});
  home.open();
  EXPECT_EQ(home.shown()["background"], Json(palette[0]));
}

INSTANTIATE_TEST_SUITE_P(Indices, BeyondThePalette,
                         testing::Values("qsBackgroundColor=9", "qsBackgroundColor=-1",
                                         "qsBackgroundColor=2147483647"));

TEST(PanelStyle, IsThatOfTheMomentItWasBuilt) {
  PanelHome home;
  home.open();
  home.step("message PreferencesDidChangeNotification name=\"Quick Settings Dark Mode\" value=YES");
  EXPECT_EQ(home.shown()["background"], Json(palette[0]));
  home.step("tap \"close\"");
  home.step("wait 1");
  home.open();
  EXPECT_EQ(home.shown()["background"], Json({30, 30, 30}));
}

// Applied again: the card's colour changes, the header keeps the colour it was built with.
TEST(PanelStyle, AppliedAgainLeavesTheHeaderAlone) {
  PanelHome home({"qsBackgroundColor=3"});
  home.open();
  EXPECT_EQ(components(home.panel().pickerLabel().textColor()), (std::vector<double>{0, 0, 0, 1}));
  home.save("isDarkMode"_ns, NSNumber::numberWithBool(YES));
  home.panel().styleView();
  Json shown = home.shown();
  EXPECT_EQ(shown["background"], Json({30, 30, 30}));
  const Json& parts = shown["views"]["children"][0]["children"];
  EXPECT_EQ(parts[3]["children"][0]["textColor"], Json({0, 0, 0, 1}));
  EXPECT_EQ(parts[4]["background"], Json({0, 0, 0, 1}));
  EXPECT_EQ(components(home.panel().pickerLabel().textColor()), (std::vector<double>{255, 255, 255, 1}));
}

}  // namespace
