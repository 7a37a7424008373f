// The panel's first page: how it is built, and what a change of a value brings about.
#include <gtest/gtest.h>

#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/rows.hpp"
#include "tests/library/key_value.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using sim::Json;
using test::PanelHome;
using tilo::ColorSlider;
using tilo::RQPopupView;

struct Row {
  const char* caption;
  double captionWidth, captionTop;
  const char* key;
  double minimum, maximum;
};

const Row rows[] = {
    {"Horizontal Padding", 170, 15, "horiIconPadding", -20, 100},
    {"Vertical Padding", 170, 95, "vertIconPadding", -20, 100},
    {"Side Inset", 130, 175, "sideIconInset", 0, 500},
    {"Top Inset", 130, 255, "topIconInset", 0, 600},
};

ColorSlider sliderOf(RQPopupView panel, size_t index) {
  return std::vector<ColorSlider>{panel.horSlider(), panel.vertSlider(), panel.sideSlider(),
                                  panel.topSlider()}
      .at(index);
}

TEST(AdjustmentPage, HoldsCaptionsSlidersAndTheAddButtonInTheirOrderAndPlaces) {
  PanelHome home;
  home.open();
  const Json children = home.shown()["views"]["children"][0]["children"][5]["children"];
  for (size_t i = 0; i < 4; ++i) {
    SCOPED_TRACE(rows[i].caption);
    const Json &caption = children[2 * i], &slider = children[2 * i + 1];
    EXPECT_EQ(caption["class"], "UILabel");
    EXPECT_EQ(caption["text"], rows[i].caption);
    EXPECT_EQ(caption["frame"], Json({10, rows[i].captionTop, rows[i].captionWidth, 30}));
    EXPECT_EQ(caption["background"], nullptr);
    EXPECT_EQ(slider["class"], "ColorSlider");
    // The row's (10, caption + 35, 255, 30), which the control enlarges.
    EXPECT_EQ(slider["frame"], Json({20, rows[i].captionTop + 5, 255, 80}));
    EXPECT_EQ(slider["background"], nullptr);
  }
  EXPECT_EQ(children[8]["class"], "BButton");
  EXPECT_EQ(children[8]["frame"], Json({210, 5, 100, 50}));
}

TEST(AdjustmentPage, SetsItsCaptionsInThePlatformsFont) {
  PanelHome home;
  home.open();
  auto caption = bridge::as<UILabel>(home.panel().scrollView().subviews().objectAtIndex(0));
  auto plain = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  EXPECT_EQ(caption.font().pointSize(), plain->font().pointSize());
  EXPECT_TRUE(caption.font().fontName().isEqualToString(plain->font().fontName()));
  EXPECT_EQ(caption.textAlignment(), plain->textAlignment());
}

TEST(AdjustmentPage, GivesEachRowItsKeyRangeAndStoredValue) {
  PanelHome home({"horiIconPadding=-7.5", "vertIconPadding=61", "sideIconInset=250.26", "topIconInset=0"});
  home.open();
  const Json shown = home.shown()["rows"];
  const double values[] = {-7.5, 61, 250.26f, 0};
  const char* const texts[] = {"-7.5", "61.0", "250.3", "0.0"};
  EXPECT_EQ(shown.size(), 4u);
  for (size_t i = 0; i < 4; ++i)
    EXPECT_EQ(shown[rows[i].caption], (Json{{"key", rows[i].key},
                                            {"value", values[i]},
                                            {"minimum", rows[i].minimum},
                                            {"maximum", rows[i].maximum},
                                            {"text", texts[i]},
                                            {"error", nullptr}}))
        << rows[i].caption;
}

TEST(AdjustmentPage, TakesAnAbsentValueForZero) {
  test::Home home(test::homeOptions("iPhone 7", {"enabled=YES", "quick=YES"}));
  home.step("swipe up");
  home.step("wait 1");
  for (const Row& row : rows) EXPECT_EQ(home.report()["panel"]["rows"][row.caption]["value"], 0);
}

TEST(AdjustmentPage, LetsItsSlidersTellOfEveryChange) {
  PanelHome home;
  home.open();
  for (size_t i = 0; i < 4; ++i) EXPECT_TRUE(sliderOf(home.panel(), i).continuous());
}

class AddButton : public testing::TestWithParam<bool> {};

TEST_P(AddButton, BearsAPlusAndItsTitleInTheControlsColour) {
  PanelHome home({GetParam() ? "isDarkMode=YES" : "isDarkMode=NO"});
  home.open();
  tilo::BButton button = home.panel().addButton();
  EXPECT_STREQ(button.titleForState(UIControlStateNormal).UTF8String(), "\uF067 Add");
  EXPECT_STREQ(button.titleLabel().font().fontName().UTF8String(), "FontAwesome");
  EXPECT_EQ(button.titleLabel().font().pointSize(), 20);
  int component = GetParam() ? 255 : 0;
  Json view = home.shown()["views"]["children"][0]["children"][5]["children"][8];
  EXPECT_EQ(view["children"][0]["textColor"], Json({component, component, component, 1}));
  EXPECT_EQ(view["alpha"], 1);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, AddButton, testing::Bool());

// Dark mode reaches the controls by the style, not by their construction.
TEST(AdjustmentPage, ShowsItsNumbersInTheStylesColour) {
  PanelHome home({"isDarkMode=YES"});
  home.open();
  for (size_t i = 0; i < 4; ++i) {
    CGFloat white = 0;
    sliderOf(home.panel(), i)
        .valueLabel()
        .textColor()
        .getRed_green_blue_alpha(&white, nullptr, nullptr, nullptr);
    EXPECT_EQ(white, 1);
  }
}

std::vector<std::pair<id, bool>> styled;
void noteDarkMode(ColorSlider self, BOOL dark) { styled.emplace_back(self.raw, dark); }

TEST(AdjustmentPage, IsStyledInTheOrderHorizontalTopVerticalSide) {
  PanelHome home({"isDarkMode=YES"});
  test::standIn<ColorSlider, &ColorSlider::setDarkMode, noteDarkMode>();
  home.open();
  RQPopupView panel = home.panel();
  EXPECT_EQ(styled, (std::vector<std::pair<id, bool>>{{panel.horSlider().raw, true},
                                                      {panel.topSlider().raw, true},
                                                      {panel.vertSlider().raw, true},
                                                      {panel.sideSlider().raw, true}}));
}

class EveryRow : public testing::TestWithParam<size_t> {};

TEST_P(EveryRow, StoresAPressedValueAtOnceAndNoOther) {
  PanelHome home({"horiIconPadding=10", "vertIconPadding=20", "sideIconInset=30", "topIconInset=40"});
  home.open();
  home.step(std::string("increment \"") + rows[GetParam()].caption + "\"");
  for (size_t i = 0; i < 4; ++i) {
    double expected = 10.0 * static_cast<double>(i + 1) + (i == GetParam() ? 1 : 0);
    NSString key = NSString::stringWithUTF8String(rows[i].key);
    EXPECT_EQ(home.stored(key), expected) << rows[i].caption;
    EXPECT_EQ(home.live(key), expected) << rows[i].caption;
  }
  EXPECT_EQ(home.stored("custom_preset"_ns), -1);
}

TEST_P(EveryRow, StoresASteppedDownValue) {
  PanelHome home({"horiIconPadding=10", "vertIconPadding=20", "sideIconInset=30", "topIconInset=40"});
  home.open();
  home.step(std::string("decrement \"") + rows[GetParam()].caption + "\" 3");
  double expected = 10.0 * static_cast<double>(GetParam() + 1) - 3;
  EXPECT_EQ(home.stored(NSString::stringWithUTF8String(rows[GetParam()].key)), expected);
}

TEST_P(EveryRow, GoesToBothEndsOfItsRange) {
  PanelHome home;
  home.open();
  const Row& row = rows[GetParam()];
  NSString key = NSString::stringWithUTF8String(row.key);
  home.step(std::string("slide \"") + row.caption + "\" " + std::to_string(row.maximum));
  EXPECT_EQ(home.stored(key), row.maximum);
  home.wait(0.3);
  home.step(std::string("slide \"") + row.caption + "\" " + std::to_string(row.minimum));
  EXPECT_EQ(home.stored(key), row.minimum);
}

TEST_P(EveryRow, StaysAtItsMaximumAndTellsOfItAllTheSame) {
  const Row& row = rows[GetParam()];
  PanelHome home({std::string(row.key) + "=" + std::to_string(row.maximum)});
  home.open();
  home.step(std::string("increment \"") + row.caption + "\"");
  EXPECT_EQ(home.stored(NSString::stringWithUTF8String(row.key)), row.maximum);
  EXPECT_EQ(home.shown()["rows"][row.caption]["value"], row.maximum);
  EXPECT_EQ(home.shown()["alpha"], 0.5);
  EXPECT_EQ(home.report()["relayouts"].size(), 1u);
}

TEST_P(EveryRow, StaysAtItsMinimum) {
  const Row& row = rows[GetParam()];
  PanelHome home({std::string(row.key) + "=" + std::to_string(row.minimum)});
  home.open();
  home.step(std::string("decrement \"") + row.caption + "\"");
  EXPECT_EQ(home.stored(NSString::stringWithUTF8String(row.key)), row.minimum);
}

INSTANTIATE_TEST_SUITE_P(OfThePage, EveryRow, testing::Range(size_t{0}, size_t{4}),
                         [](const auto& test) { return std::string(rows[test.param].key); });

TEST(Values, AreStoredAsFloats) {
  PanelHome home;
  home.open();
  home.step("increment \"Top Inset\"");
  auto value = bridge::as<NSNumber>(home.controller().rootObj().objectForKey("topIconInset"_ns));
  EXPECT_EQ(*value.objCType(), 'f');
  auto preset = bridge::as<NSNumber>(home.controller().rootObj().objectForKey("custom_preset"_ns));
  EXPECT_FALSE(std::string("fd").contains(*preset.objCType()));
}

TEST(Values, AreShownWithOneDecimal) {
  PanelHome home({"topIconInset=30"});
  home.open();
  home.panel().topSlider().value.set(47.26f);
  home.panel().moveIcons(home.panel().topSlider());
  EXPECT_EQ(home.shown()["rows"]["Top Inset"]["text"], "47.3");
  home.panel().horSlider().value.set(-0.04f);
  home.panel().moveIcons(home.panel().horSlider());
  EXPECT_EQ(home.shown()["rows"]["Horizontal Padding"]["text"], "-0.0");
}

TEST(Values, EndTheUseOfASavedLayout) {
  PanelHome home({"custom_preset=0"});
  home.open();
  home.step("increment \"Side Inset\"");
  EXPECT_EQ(home.stored("custom_preset"_ns), -1);
  EXPECT_EQ(home.live("custom_preset"_ns), -1);
}

// What was passed on to the controller, in order.
std::vector<std::pair<std::string, Json>> saved;
void noteSaved(tilo::RQGestureController self, NSString key, bridge::Object value) {
  saved.emplace_back(key.UTF8String(), sim::plain(value));
  bridge::original<noteSaved>(self, key, value);
}

TEST(Values, GoThroughTheGestureControllerThePresetFirst) {
  PanelHome home;
  home.open();
  test::standIn<tilo::RQGestureController, &tilo::RQGestureController::savePrefsWithKey_value, noteSaved>();
  home.step("increment \"Vertical Padding\"");
  EXPECT_EQ(saved,
            (std::vector<std::pair<std::string, Json>>{{"custom_preset", -1}, {"vertIconPadding", 15.0}}));
}

// The stored value at the moment of the announcement.
std::vector<Json> atAnnouncement;
void noteAnnouncement(test::Witness, test::Notification posted) {
  if (std::string(posted.name().UTF8String()) == "PopupViewDidDisappearNotification")
    atAnnouncement.push_back(PanelHome::stored("topIconInset"_ns));
}

TEST(Values, AreStoredBeforeTheRelayoutIsAnnounced) {
  PanelHome home;
  auto witness = test::makeWitness();
  test::standIn<test::Witness, &test::Witness::notified, noteAnnouncement>();
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      witness.get(), bridge::selector<"notified:">(), {}, {});
  home.open();
  home.step("increment \"Top Inset\" 5");
  EXPECT_EQ(atAnnouncement, (std::vector<Json>{31, 32, 33, 34, 35}));
}

TEST(Values, StayWhenThePanelIsCancelled) {
  PanelHome home;
  home.open();
  home.step("increment \"Top Inset\" 5");
  home.wait(3.3);
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_EQ(home.stored("topIconInset"_ns), 35);
  EXPECT_EQ(home.report()["pages"][0]["topInset"], 35);
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["frame"][1], 35);
  home.open();
  EXPECT_EQ(home.shown()["rows"]["Top Inset"]["value"], 35);
}

TEST(Values, ThatAreTypedAreAppliedLikePressedOnes) {
  PanelHome home;
  home.open();
  home.panel().topSlider().valueLabel().text.set("123"_ns);
  home.panel().topSlider().doneWithNumberPad();
  EXPECT_EQ(home.stored("topIconInset"_ns), 123);
  EXPECT_EQ(home.shown()["rows"]["Top Inset"]["text"], "123.0");
  EXPECT_TRUE(home.panel().moveTimer().isValid());
}

TEST(Notification, OfAnotherControlMarksFadesAndLaysOutButStoresNoValue) {
  PanelHome home({"custom_preset=2"});
  home.open();
  auto other = bridge::make<ColorSlider, &ColorSlider::initWithFrame_type>(CGRect{{0, 0}, {100, 30}},
                                                                           "topIconInset"_ns);
  other->maximumValue.set(900);
  other->value.set(700);
  Json before = home.report()["preferences"];
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns, other.get());
  home.wait(0.3);
  EXPECT_EQ(home.shown()["alpha"], 0.5);
  before["custom_preset"] = -1;
  EXPECT_EQ(home.report()["preferences"], before);
  EXPECT_EQ(home.report()["relayouts"].size(), 1u);
}

}  // namespace
