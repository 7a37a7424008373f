// The panel's second page: how it is built, what its picker shows, and what "Select" does.
#include <gtest/gtest.h>

#include "platform/foundation/attributed_string.hpp"
#include "tests/library/expected_grid.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::layout;
using test::layouts;
using test::PresetsHome;

// What the page added to the scroll view, in its order.
std::vector<Json> parts(PresetsHome& home) {
  const Json views = home.shown()["views"];
  for (const Json& view : views["children"][0]["children"]) {
    if (view["class"] != "UIScrollView") continue;
    std::vector<Json> found;
    for (const Json& part : view["children"])
      if (part["frame"][0].get<double>() >= 300) found.push_back(part);
    return found;
  }
  return {};
}

struct Part {
  const char* className;
  std::vector<double> frame;
  const char* text;
  Json color;
};

TEST(PresetsPage, HoldsItsPartsInTheirOrderAndPlaces) {
  PresetsHome home(layouts({"Home"}));
  home.open();
  const Part expected[] = {
      {"UIButton", {490, 290, 100, 50}, "Select", {0, 0, 0, 1.0}},
      {"UIButton", {310, 290, 100, 50}, "Delete", {165, 67, 77, 1.0}},
      {"UILabel", {320, 15, 200, 30}, "Saved Presets", {0, 0, 0, 1.0}},
      {"UIPickerView", {300, 20, 300, 280}, nullptr, nullptr},
  };
  const std::vector<Json> found = parts(home);
  ASSERT_EQ(found.size(), std::size(expected));
  for (size_t i = 0; i < found.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(found[i]["class"], expected[i].className);
    EXPECT_EQ(found[i]["frame"], Json(expected[i].frame));
    EXPECT_EQ(found[i]["background"], nullptr);
    if (!expected[i].text) continue;
    const Json& label = found[i]["class"] == "UIButton" ? found[i]["children"][0] : found[i];
    EXPECT_EQ(label["text"], expected[i].text);
    EXPECT_EQ(label["textColor"], expected[i].color);
  }
}

TEST(PresetsPage, IsWhiteOnBlackInTheDark) {
  PresetsHome home(layouts({"Home"}), {"isDarkMode=YES"});
  home.open();
  const std::vector<Json> found = parts(home);
  EXPECT_EQ(found[0]["children"][0]["textColor"], Json({255, 255, 255, 1.0}));  // "Select"
  EXPECT_EQ(found[1]["children"][0]["textColor"], Json({165, 67, 77, 1.0}));    // "Delete"
  EXPECT_EQ(found[2]["textColor"], Json({255, 255, 255, 1.0}));                 // the caption
}

TEST(PresetsPage, MakesItsButtonsOfTheCustomKind) {
  PresetsHome home(layouts({"Home"}));
  home.open();
  const NSArray views = home.panel().scrollView().subviews();
  int buttons = 0;
  for (NSUInteger i = 0; i < views.count(); ++i) {
    if (!bridge::isKindOf<UIButton>(views.objectAtIndex(i))) continue;
    const auto button = bridge::as<UIButton>(views.objectAtIndex(i));
    if (!button.titleForState(UIControlStateNormal)) continue;
    const std::string title = button.titleForState(UIControlStateNormal).UTF8String();
    if (title != "Select" && title != "Delete") continue;
    EXPECT_EQ(button.buttonType(), UIButtonTypeCustom);
    ++buttons;
  }
  EXPECT_EQ(buttons, 2);
}

TEST(PresetsPage, KeepsNoSelectButtonAndNoDataSource) {
  PresetsHome home(layouts({"Home"}));
  home.open();
  EXPECT_FALSE(home.panel().select());
  EXPECT_FALSE(home.panel().pickerView().dataSource());
  EXPECT_TRUE(home.panel().pickerView().delegate() == home.panel());
  EXPECT_TRUE(home.panel().pickerView().showsSelectionIndicator());
}

TEST(PresetsPage, HasAPickerThatIsClearWhite) {
  PresetsHome home({});
  home.open();
  const UIColor ground = home.panel().pickerView().backgroundColor();
  ASSERT_TRUE(ground);
  CGFloat red = 0, green = 0, blue = 0, alpha = 1;
  ground.getRed_green_blue_alpha(&red, &green, &blue, &alpha);
  EXPECT_EQ((std::vector<CGFloat>{red, green, blue, alpha}), (std::vector<CGFloat>{255, 255, 255, 0}));
}

// One that somebody else sets.
TEST(PresetsPage, LetsASelectButtonBePressedWhileThereAreLayouts) {
  PresetsHome home({});
  home.openPresets();
  const auto button = bridge::make<tilo::BButton, &UIView::initWithFrame>(CGRect{{0, 0}, {50, 50}});
  home.panel().select.set(button);
  home.panel().getData();
  EXPECT_FALSE(button->enabled());
  home.write(test::presetsPath, test::presetsDocument(Json(layouts({"Home"}))));
  home.panel().getData();
  EXPECT_TRUE(button->enabled());
}

TEST(PresetsPage, ListsTheLayoutsInTheOrderOfTheFile) {
  PresetsHome home(layouts({"Home", "Away", "Home"}));
  home.openPresets();
  EXPECT_EQ(home.names(), Json({"Home", "Away", "Home"}));
  EXPECT_EQ(home.shown()["caption"], "Saved Presets");
  EXPECT_EQ(home.panel().pickerView().numberOfComponents(), 1);
  EXPECT_EQ(home.panel().pickerView().numberOfRowsInComponent(0), 3);
}

TEST(PresetsPage, AnswersItsPicker) {
  PresetsHome home(layouts({"Home", "Away"}), {"isDarkMode=YES"});
  home.open();
  const auto panel = home.panel();
  const UIPickerView picker = panel.pickerView();
  const auto answers = bridge::as<UIPickerViewDelegate>(panel);
  const auto counts = bridge::as<UIPickerViewDataSource>(panel);
  EXPECT_EQ(counts.numberOfComponentsInPickerView(picker), 1);
  EXPECT_EQ(counts.pickerView_numberOfRowsInComponent(picker, 0), 2);
  EXPECT_STREQ(answers.pickerView_titleForRow_forComponent(picker, 1, 0).UTF8String(), "Away");
  EXPECT_TRUE(panel.items() == panel.data());
  picker.frame.set({{300, 20}, {299.9, 280}});
  EXPECT_EQ(answers.pickerView_widthForComponent(picker, 0), 299);
}

TEST(PresetsPage, ColoursItsTitlesAndNothingElse) {
  PresetsHome home(layouts({"Home"}), {"isDarkMode=YES"});
  home.open();
  const auto answers = bridge::as<UIPickerViewDelegate>(home.panel());
  const NSAttributedString title =
      answers.pickerView_attributedTitleForRow_forComponent(home.panel().pickerView(), 0, 0);
  EXPECT_STREQ(title.string().UTF8String(), "Home");
  const NSDictionary attributes = title.attributesAtIndex_effectiveRange(0, nullptr);
  EXPECT_EQ(attributes.count(), 1u);
  EXPECT_TRUE(attributes.objectForKey(bridge::as<NSString>(NSForegroundColorAttributeName)) ==
              UIColor::whiteColor());
}

TEST(PresetsPage, RemembersTheRowThatTheWheelCameToRestAt) {
  PresetsHome home(layouts({"a", "b", "c"}));
  home.openPresets();
  EXPECT_EQ(home.panel().rowSelected(), 0);
  home.step("pick 2");
  EXPECT_EQ(home.panel().rowSelected(), 2);
  EXPECT_EQ(home.shown()["selectedRow"], 2);
}

TEST(PresetsPage, DoesNothingWithARowUntilItIsSelected) {
  PresetsHome home(layouts({"a", "b", "c"}));
  home.openPresets();
  const Json before = home.report()["preferences"];
  home.step("pick 2");
  home.wait(1);
  EXPECT_EQ(home.report()["preferences"], before);
  EXPECT_TRUE(home.report()["relayouts"].empty());
}

TEST(PresetsPage, TurnsItsWheelWithoutMovingTheCard) {
  PresetsHome home(layouts({"a", "b", "c", "d"}));
  home.openPresets();
  const Json frame = home.shown()["frame"];
  home.step("drag 187 370 187 306 0.5");
  EXPECT_EQ(home.shown()["frame"], frame);
  home.wait(2);
  EXPECT_EQ(home.shown()["frame"], frame);
  EXPECT_GT(home.shown()["selectedRow"], 0);
}

TEST(PresetsPage, WithoutLayoutsSaysSo) {
  PresetsHome home({});
  home.openPresets();
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
  EXPECT_EQ(home.names(), Json::array());
  EXPECT_EQ(home.shown()["selectedRow"], -1);
}

TEST(PresetsPage, WithoutLayoutsCanBeSelectedAllTheSame) {
  PresetsHome home({}, {"showed-setup=YES"});
  home.openPresets();
  home.step("tap \"Select\"");
  home.wait(1);
  EXPECT_EQ(home.report()["panel"], nullptr);
  EXPECT_EQ(home.report()["preferences"]["custom_preset"], 0);
  EXPECT_FALSE(home.controller().currentPreset());
}

TEST(PresetsPage, SaysThatThereAreNoLayoutsFromThenOn) {
  PresetsHome home({});
  home.open();
  home.saveAs("Home");
  EXPECT_EQ(home.names(), Json::array({"Home"}));
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
}

TEST(Select, AppliesTheRowInTheMiddle) {
  PresetsHome home(layouts({"a", "b", "c"}), {"showed-setup=YES"});
  home.openPresets();
  home.step("pick 1");
  home.step("tap \"Select\"");
  EXPECT_EQ(home.report()["preferences"]["custom_preset"], 1);
  const auto live = home.panel().rootObj().objectForKey("custom_preset"_ns);
  EXPECT_EQ(bridge::as<NSNumber>(live).intValue(), 1);
  EXPECT_EQ(sim::plain(home.controller().currentPreset())["name"], "b");
}

TEST(Select, StoresAWholeNumber) {
  PresetsHome home(layouts({"a", "b"}));
  home.openPresets();
  home.step("tap \"Select\"");
  const auto chosen = bridge::as<NSNumber>(home.controller().rootObj().objectForKey("custom_preset"_ns));
  EXPECT_FALSE(std::string("fdcB").contains(*chosen.objCType()));
}

TEST(Select, WithoutTouchingThePickerAppliesTheFirstRow) {
  PresetsHome home(layouts({"a", "b"}), {"showed-setup=YES"});
  home.openPresets();
  home.step("tap \"Select\"");
  EXPECT_EQ(home.report()["preferences"]["custom_preset"], 0);
  EXPECT_EQ(sim::plain(home.controller().currentPreset())["name"], "a");
}

TEST(Select, ClosesThePanel) {
  PresetsHome home(layouts({"a"}), {"showed-setup=YES"});
  home.openPresets();
  const double top = home.shown()["frame"][1];
  home.step("tap \"Select\"");
  home.wait(0.3);
  EXPECT_GT(home.shown()["frame"][1], top);
  home.wait(0.5);
  EXPECT_EQ(home.report()["panel"], nullptr);
}

TEST(Select, OfTheSecondOfThreeWhoseMiddleWasDeletedTakesTheLast) {
  PresetsHome home({layout("first", 0), layout("third", 2)}, {"showed-setup=YES"});
  home.openPresets();
  home.step("pick 1");
  home.step("tap \"Select\"");
  EXPECT_EQ(sim::plain(home.controller().currentPreset())["name"], "third");
}

TEST(Select, LeavesTheFileAsItIs) {
  PresetsHome home(layouts({"a", "b"}), {"showed-setup=YES"});
  home.openPresets();
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.step("pick 1");
  home.step("tap \"Select\"");
  home.wait(1);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
}

// A layout that was saved on another device: taken as it stands where it says so, stretched where it does
// not.
struct Foreign {
  const char* device;
  int configurable;
};
void PrintTo(const Foreign& foreign, std::ostream* out) { *out << foreign.device << foreign.configurable; }

class ForeignLayout : public testing::TestWithParam<Foreign> {};

TEST_P(ForeignLayout, MovesTheIconsWhereTheCalculationSays) {
  const auto [device, configurable] = GetParam();
  const Json record = test::preset("Foreign", configurable, 6.5, 3, 11, 21);
  PresetsHome home({layout("own"), record}, {"showed-setup=YES"}, device);
  home.openPresets();
  home.step("pick 1");
  home.step("tap \"Select\"");
  home.wait(2);
  const Json system = test::stockReport({"--device", device});
  const test::ExpectedScreen screen(sim::findDevice(device), sim::Orientation::portrait);
  const Json settings{{"enabled", true}, {"custom_preset", 1}};
  const test::ExpectedAnswers answers = test::ExpectedHome{system, settings, record, screen}.answers();
  const Json page = home.report()["pages"][0];
  test::expectAnswers(page, answers);
  test::expectFrames(page, answers, test::iconViewSize(system));
}

INSTANTIATE_TEST_SUITE_P(On, ForeignLayout,
                         testing::Values(Foreign{"iPhone 7", 0}, Foreign{"iPhone 7", 1},
                                         Foreign{"iPhone 5", 0}, Foreign{"iPhone 5", 1},
                                         Foreign{"iPad Air 2", 0}, Foreign{"iPad Air 2", 1}));

TEST(AStepperButton, AfterALayoutWasChosenLeavesItForValuesOfTheirOwn) {
  PresetsHome home({layout("a", 0, 5)}, {"showed-setup=YES"});
  home.openPresets();
  home.step("tap \"Select\"");
  home.wait(1);
  home.open();
  home.step("increment \"Top Inset\"");
  home.wait(1);
  const Json report = home.report();
  EXPECT_EQ(report["preferences"]["custom_preset"], -1);
  EXPECT_EQ(report["preferences"]["topIconInset"], 31);
  EXPECT_EQ(report["pages"][0]["topInset"], 31);
  EXPECT_EQ(report["pages"][0]["sideInset"], 27);
}

TEST(FirstRunNotice, IsShownUntilItIsAcknowledged) {
  PresetsHome home(layouts({"a"}));
  home.openPresets();
  home.step("tap \"Select\"");
  const Json alert = home.report()["alert"];
  EXPECT_EQ(alert["title"], "Tilo 3");
  EXPECT_EQ(alert["message"], "To access the Quick Actions again swipe up anywhere on the SpringBoard.");
  EXPECT_EQ(alert["actions"], Json::array({"Okay"}));
  EXPECT_EQ(alert["text"], nullptr);
  EXPECT_FALSE(home.report()["preferences"].contains("showed-setup"));
  home.step("choose \"Okay\"");
  EXPECT_EQ(home.report()["preferences"]["showed-setup"], true);
  EXPECT_EQ(home.report()["alert"], nullptr);
}

TEST(FirstRunNotice, IsNotWaitedForByThePanel) {
  PresetsHome home(layouts({"a"}));
  home.openPresets();
  home.step("tap \"Select\"");
  home.wait(1);
  EXPECT_EQ(home.report()["panel"], nullptr);
  EXPECT_NE(home.report()["alert"], nullptr);
}

TEST(FirstRunNotice, ComesWhileTheSettingIsFalse) {
  PresetsHome home(layouts({"a"}), {"showed-setup=NO"});
  home.openPresets();
  home.step("tap \"Select\"");
  EXPECT_NE(home.report()["alert"], nullptr);
}

TEST(FirstRunNotice, DoesNotComeOnceItWasAcknowledged) {
  PresetsHome home(layouts({"a"}), {"showed-setup=YES"});
  home.openPresets();
  home.step("tap \"Select\"");
  EXPECT_EQ(home.report()["alert"], nullptr);
}

TEST(FirstRunNotice, DoesNotComeAgainAfterOkay) {
  PresetsHome home(layouts({"a"}));
  for (const bool first : {true, false}) {
    home.openPresets();
    home.step("tap \"Select\"");
    EXPECT_EQ(home.report()["alert"] != nullptr, first);
    if (first) home.step("choose \"Okay\"");
    home.wait(1);
  }
}

}  // namespace
