// Preferences that somebody edited: what is no number counts as absent, wherever one is expected, and
// SpringBoard goes on.
#include <cmath>

#include "panel/popup_view.hpp"
#include "platform/foundation/notification_center.hpp"
#include "settings/store/configuration_manager.hpp"
#include "startup/grid/geometry.hpp"
#include "tests/library/edited_values.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using test::Edited;
using test::Home;
using test::PanelHome;
using Json = sim::Json;

// Everything that the settings decide of a home screen, apart from the stored settings themselves.
Json looks(Home& home) {
  Json report = home.report();
  return {{"pages", report["pages"]},
          {"dock", report["dock"]},
          {"folder", report["folder"]},
          {"pageDots", report["pageDots"]},
          {"panel", report["panel"]}};
}

void layOut(Home& home) {
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    bridge::Object());
  home.step("wait 1");
}

const std::vector<std::string> settingsInForce{
    "icons=YES", "rows=5",       "columns=3",    "dockIcons=3",     "dockIconsEnabled=YES",
    "dock=NO",   "square=YES",   "preset=-2",    "isDarkMode=YES",  "qsBackgroundColor=3",
    "quick=YES", "twoFinger=NO", "enabled=YES",  "forceTouch=YES",  "custom_preset=-1",
    "page=YES",  "labels=YES",   "numOfPages=3", "showed-setup=YES"};

const std::vector<const char*> numericKeys{
    "rows",         "columns", "vertIconPadding", "horiIconPadding",  "sideIconInset",
    "topIconInset", "preset",  "custom_preset",   "qsBackgroundColor"};
// That there is something stored decides about this one.
const std::vector<const char*> dockCount{"dockIcons"};
const std::vector<const char*> switches{
    "enabled", "icons", "dockIconsEnabled", "dock",       "square",     "labels",
    "page",    "quick", "twoFinger",        "forceTouch", "isDarkMode", "showed-setup"};

// One after the other, each as the value and then gone.
void expectAsGoodAsAbsent(const Edited& edited, const std::vector<const char*>& keys) {
  test::PresetsHome home({test::preset("Saved", 0, 10, 20, 30, 40)}, settingsInForce);
  for (const char* key : keys) {
    const NSString name = NSString::stringWithUTF8String(key);
    const auto before =
        bridge::retained(bridge::as<NSObject>(PanelHome::controller().rootObj().objectForKey(name)));
    const auto look = [&] {
      layOut(home);
      home.open();
      Json all = looks(home);
      PanelHome::panel().didHitCancel();
      home.wait(1);
      return all;
    };
    home.save(name, edited.object());
    const Json found = look();
    home.save(name, bridge::Object());
    EXPECT_EQ(found, look()) << key;
    home.save(name, before.get());
  }
}

class AnEditedNumber : public testing::TestWithParam<Edited> {};

TEST_P(AnEditedNumber, IsAsGoodAsAbsent) { expectAsGoodAsAbsent(GetParam(), numericKeys); }

TEST_P(AnEditedNumber, OfDockIconsIsZero) {
  Home home({"--set", "dockIconsEnabled=YES"});
  home.save("dockIcons"_ns, GetParam().object());
  EXPECT_EQ(SBDockIconListView::numberOfDockIcons(), 0);
  EXPECT_EQ(home.dock().iconsInRowForSpacingCalculation(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Being, AnEditedNumber,
                         testing::ValuesIn(test::together({&test::wrongKinds, &test::wrongTexts,
                                                           &test::noNumbers, &test::endlessTexts})),
                         test::editedName<testing::TestParamInfo<Edited>>);

class AnEditedSwitch : public testing::TestWithParam<Edited> {};

TEST_P(AnEditedSwitch, IsAsGoodAsAbsent) { expectAsGoodAsAbsent(GetParam(), switches); }

INSTANTIATE_TEST_SUITE_P(Being, AnEditedSwitch,
                         testing::ValuesIn(test::together({&test::wrongKinds, &test::wrongTexts,
                                                           &test::noNumbers})),
                         test::editedName<testing::TestParamInfo<Edited>>);

// A preferences file in which every key has that value.
class AFileOfNothingBut : public testing::TestWithParam<Edited> {
 protected:
  static test::Preparation file() {
    std::string entries;
    for (const auto* keys : {&numericKeys, &dockCount, &switches})
      for (const char* key : *keys) entries += "<key>" + std::string(key) + "</key>" + GetParam().xml + "\n";
    return test::having(test::preferencesPath, test::propertyList(entries));
  }
};

TEST_P(AFileOfNothingBut, LeavesTheHomeScreenAsItIs) {
  Json own = test::stockLayout();
  Home home({}, file());
  Json found = test::layoutOf(home);
  EXPECT_EQ(found["pages"][0]["rows"], own["pages"][0]["rows"]);
  EXPECT_EQ(found["pages"][0]["columns"], own["pages"][0]["columns"]);
  EXPECT_EQ(found["pages"][0]["sideInset"], own["pages"][0]["sideInset"]);
  home.step("swipe up");
  home.step("press 4");
  home.step("two-finger-tap");
  EXPECT_EQ(home.report()["panel"], nullptr);
}

TEST_P(AFileOfNothingBut, LetsATabletTurn) {
  Home home({"--device", "iPad Air"}, file());
  home.step("rotate landscape");
  home.step("rotate portrait");
  EXPECT_EQ(home.report()["pages"][0]["rows"], 5);
}

INSTANTIATE_TEST_SUITE_P(Being, AFileOfNothingBut,
                         testing::ValuesIn(test::together({&test::wrongKinds, &test::wrongTexts,
                                                           &test::noNumbers})),
                         test::editedName<testing::TestParamInfo<Edited>>);

TEST(AStoredText, CountsAsTheNumberThatItBegins) {
  PanelHome home({"icons=YES"});
  home.save("rows"_ns, "3"_ns);
  home.save("columns"_ns, " 2 columns"_ns);
  home.save("vertIconPadding"_ns, "-7.5"_ns);
  Json page = home.report()["pages"][0];
  EXPECT_EQ(page["rows"], 3);
  EXPECT_EQ(page["columns"], 2);
  EXPECT_EQ(page["verticalPadding"], -7.5);
}

TEST(AStoredText, OfTruthTurnsASwitchOn) {
  PanelHome home({"square=NO"});
  home.save("isDarkMode"_ns, "YES"_ns);
  home.open();
  EXPECT_EQ(home.shown()["dark"], true);
}

TEST(AStoredText, WithoutANumberIsNoCountOfRows) {
  PanelHome home;
  home.save("rows"_ns, "YES"_ns);
  EXPECT_EQ(tilo::ConfigurationManager::sharedManager().rows(), 6);
}

TEST(AnEditedNumber, ShowsAsZeroInThePanelsField) {
  for (const Edited& edited : test::together({&test::wrongKinds, &test::noNumbers})) {
    static PanelHome home;
    home.save("sideIconInset"_ns, edited.object());
    home.open();
    EXPECT_EQ(test::PanelHome::panel().sideSlider().valueLabel().text().isEqualToString("0.0"_ns), YES)
        << edited.name;
    EXPECT_EQ(PanelHome::panel().sideSlider().value(), 0) << edited.name;
    PanelHome::panel().didHitCancel();
    home.wait(1);
  }
}

// Spacing that no number of points has room for.
class AHugeNumber : public testing::TestWithParam<double> {};

TEST_P(AHugeNumber, MovesIconsOnlyAsFarAsAFrameCanSay) {
  PanelHome home;
  for (NSString key : {"vertIconPadding"_ns, "horiIconPadding"_ns, "sideIconInset"_ns, "topIconInset"_ns})
    home.save(key, GetParam());
  SBRootIconListView page = home.page(0);
  const double most = GetParam() < 0 ? -1e6 : 1e6;
  EXPECT_EQ(page.verticalIconPadding(), most);
  EXPECT_EQ(page.horizontalIconPadding(), most);
  EXPECT_EQ(page.sideIconInset(), most);
  EXPECT_EQ(page.topIconInset(), most);
  layOut(home);
  for (const Json& icon : home.report()["pages"][0]["icons"])
    for (const Json& side : icon["frame"]) EXPECT_LT(std::abs(side.get<double>()), 1e8);
}

TEST_P(AHugeNumber, IsReadAsAFiniteOne) {
  PanelHome home;
  home.save("vertIconPadding"_ns, GetParam());
  home.page(0).verticalIconPadding();
  EXPECT_TRUE(std::isfinite(test::libraryVariable<CGFloat[4]>("framing")[0]));
  home.open();
  EXPECT_EQ(PanelHome::panel().vertSlider().value(), GetParam() < 0 ? -20 : 100);
}

INSTANTIATE_TEST_SUITE_P(Of, AHugeNumber, testing::Values(1e7, -1e7, 1e38, 1e39, -1e39, 1e300, -1e300));

// Messages from the settings.
class AMessage : public testing::TestWithParam<Edited> {
 protected:
  static void send(PanelHome& home, NSString message, NSString name, NSString key, bridge::Object value) {
    NSMutableDictionary info = NSMutableDictionary::dictionary();
    info.setObject_forKey(name, "name"_ns);
    info.setObject_forKey(value, key);
    SBIconScrollView view = bridge::as<SBIconScrollView>(home.page(0).superview());
    ASSERT_TRUE(view);
    if (message.isEqualToString("List"_ns))
      view.listCellPreferencesUpdated_withUserInfo(message, info);
    else
      view.preferencesUpdated_withUserInfo(message, info);
  }
};

TEST_P(AMessage, WhoseValueIsOfAWrongKindStoresNothing) {
  PanelHome home({"isDarkMode=YES"});
  send(home, "Switch"_ns, "Quick Settings Dark Mode"_ns, "value"_ns, GetParam().object());
  EXPECT_EQ(home.live("isDarkMode"_ns), true);
}

TEST_P(AMessage, WhoseValueIsOfAWrongKindLeavesTheGesturesAsTheyAre) {
  PanelHome home;
  send(home, "Switch"_ns, "Enable Quick Settings"_ns, "value"_ns, GetParam().object());
  send(home, "Switch"_ns, "Use Two Finger Tap Instead"_ns, "value"_ns, GetParam().object());
  home.open();
  EXPECT_NE(home.shown(), nullptr);
}

TEST_P(AMessage, WhoseIndexIsOfAWrongKindStoresNothing) {
  PanelHome home({"qsBackgroundColor=3"});
  send(home, "List"_ns, "qsBackgroundColor"_ns, "index"_ns, GetParam().object());
  EXPECT_EQ(home.live("qsBackgroundColor"_ns), 3);
}

bridge::Object null() { return bridge::ClassMethod<"NSNull", "null", NSObject()>()(); }

INSTANTIATE_TEST_SUITE_P(Being, AMessage, testing::ValuesIn([] {
                           auto kinds = test::together({&test::wrongKinds});
                           kinds.push_back({"Null", "", null});
                           return kinds;
                         }()),
                         test::editedName<testing::TestParamInfo<Edited>>);

}  // namespace
