// Saving a layout: the question for its name, the record in the file, and the names that there may be.
#include <gtest/gtest.h>

#include "platform/uikit/alert_controller.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/text_field.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::layout;
using test::layouts;
using test::PresetsHome;
using test::Records;

double alphaOf(PresetsHome& home) { return home.shown()["alpha"]; }

UITextField nameField() {
  const UIViewController root = UIApplication::sharedApplication().keyWindow().rootViewController();
  const auto alert = bridge::as<UIAlertController>(root.presentedViewController());
  return bridge::as<UITextField>(alert.textFields().objectAtIndex(0));
}

TEST(Add, AsksForAName) {
  PresetsHome home({});
  home.open();
  home.step("tap \"Add\"");
  const Json alert = home.report()["alert"];
  EXPECT_EQ(alert["title"], "Tilo 3");
  EXPECT_EQ(alert["message"], "Add custom layout");
  EXPECT_EQ(alert["actions"], Json({"Add", "Cancel"}));
  EXPECT_EQ(alert["text"], "");
}

TEST(Add, HasADarkKeyboardAndAPlaceholderInItsField) {
  PresetsHome home({});
  home.open();
  home.step("tap \"Add\"");
  const UITextField field = nameField();
  EXPECT_STREQ(field.placeholder().UTF8String(), "Name");
  EXPECT_EQ(field.clearButtonMode(), UITextFieldViewModeWhileEditing);
  EXPECT_EQ(field.keyboardAppearance(), UIKeyboardAppearanceDark);
  EXPECT_TRUE(field.isFirstResponder());
}

TEST(Add, HasAPlainAndADestructiveAction) {
  PresetsHome home({});
  home.open();
  home.step("tap \"Add\"");
  const UIViewController root = UIApplication::sharedApplication().keyWindow().rootViewController();
  const NSArray actions = bridge::as<UIAlertController>(root.presentedViewController()).actions();
  ASSERT_EQ(actions.count(), 2u);
  EXPECT_EQ(bridge::as<UIAlertAction>(actions.objectAtIndex(0)).style(), UIAlertActionStyleDefault);
  EXPECT_EQ(bridge::as<UIAlertAction>(actions.objectAtIndex(1)).style(), UIAlertActionStyleDestructive);
}

TEST(Add, TakesThePanelOutOfSightWhileItAsks) {
  PresetsHome home({});
  home.open();
  home.step("tap \"Add\"");
  EXPECT_EQ(alphaOf(home), 1);
  home.wait(0.2);
  EXPECT_NEAR(alphaOf(home), 0.5, 1e-3);
  home.wait(0.2);
  EXPECT_EQ(alphaOf(home), 0);
  home.wait(5);
  EXPECT_EQ(alphaOf(home), 0);
}

TEST(Add, AsksInTheMiddleOfWhatTheKeyboardLeavesHoweverTheDeviceIsHeld) {
  PresetsHome home({}, {}, "iPad Air 2");
  home.open();
  home.step("tap \"Add\"");
  for (const char* way : {"landscape", "portrait"}) {
    home.step(std::string("rotate ") + way);
    home.wait(1);
    const UIViewController root = UIApplication::sharedApplication().keyWindow().rootViewController();
    const CGPoint middle = root.presentedViewController().view().center();
    const CGRect keys = sim::uikit::keyboardFrame();
    EXPECT_GT(keys.size.height, 0);
    EXPECT_NEAR(middle.x, keys.size.width / 2, 0.5) << way;
    EXPECT_NEAR(middle.y, keys.origin.y / 2, 0.5) << way;
  }
}

TEST(Add, KeepsThePanelNoLongerThanTheAlertStands) {
  PresetsHome home({});
  home.open();
  const NSUInteger before = home.panel().retainCount();
  home.step("tap \"Add\"");
  home.wait(1);
  EXPECT_GT(home.panel().retainCount(), before);
  home.step("choose \"Cancel\"");
  home.wait(1);
  EXPECT_EQ(home.panel().retainCount(), before);
}

class AnAnswer : public testing::TestWithParam<const char*> {};

TEST_P(AnAnswer, BringsThePanelBack) {
  PresetsHome home({});
  home.open();
  home.step("tap \"Add\"");
  home.wait(1);
  home.step(std::string("choose \"") + GetParam() + "\"");
  EXPECT_EQ(alphaOf(home), 0);
  home.wait(0.2);
  EXPECT_NEAR(alphaOf(home), 0.5, 1e-3);
  home.wait(0.2);
  EXPECT_EQ(alphaOf(home), 1);
}

INSTANTIATE_TEST_SUITE_P(Of, AnAnswer, testing::Values("Add", "Cancel"));

TEST(Saving, WritesTheFourValuesUnderTheName) {
  PresetsHome home(layouts({"one", "two"}),
                   {"horiIconPadding=10", "vertIconPadding=5", "sideIconInset=20", "topIconInset=30"});
  home.open();
  home.saveAs("Home");
  EXPECT_TRUE(test::same(home.stored()[2], {{"name", "Home"},
                                            {"value", 2},
                                            {"configurable", 1},
                                            {"configuration",
                                             {{"horizontal_padding", 10.0},
                                              {"vertical_padding", 5.0},
                                              {"side_inset", 20.0},
                                              {"top_inset", 30.0}}}}))
      << home.stored()[2];
  EXPECT_EQ(home.stored().size(), 3u);
  EXPECT_EQ(home.panel().pickerView().numberOfRowsInComponent(0), 3);
}

TEST(Saving, TakesTheValuesThatTheSlidersHaveNow) {
  PresetsHome home({}, {"topIconInset=30"});
  home.open();
  home.step("increment \"Top Inset\" 3");
  home.step("wait 4");
  home.saveAs("Home");
  EXPECT_EQ(home.stored()[0]["configuration"]["top_inset"], 33);
}

TEST(Saving, KeepsFractionsOfAPoint) {
  PresetsHome home({}, {"horiIconPadding=1.1"});
  home.open();
  home.saveAs("Home");
  EXPECT_NEAR(home.stored()[0]["configuration"]["horizontal_padding"].get<double>(), 1.1, 1e-6);
}

TEST(Saving, WritesNothingButTheListOnOneLine) {
  PresetsHome home({});
  home.open();
  home.saveAs("Home");
  const std::string text = home.contents(test::presetsPath);
  EXPECT_TRUE(text.starts_with("{\"configurations\":[{")) << text;
  EXPECT_EQ(text.find_first_of(" \n"), std::string::npos) << text;
  EXPECT_EQ(test::namesIn(home, test::presetsFolder), std::set<std::string>{"config.json"});
}

TEST(Saving, LeavesTheSettingsAlone) {
  PresetsHome home({}, {"custom_preset=-1"});
  home.open();
  const Json before = home.report()["preferences"];
  home.saveAs("Home");
  EXPECT_EQ(home.report()["preferences"], before);
}

TEST(Saving, WithoutANameWritesNothing) {
  PresetsHome home(layouts({"one"}));
  home.open();
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.saveAs("");
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(home.report()["alert"], nullptr);
  EXPECT_EQ(alphaOf(home), 1);
}

TEST(Saving, ThatIsCancelledWritesNothing) {
  PresetsHome home(layouts({"one"}));
  home.open();
  const test::FileState before = test::stateOf(home.simulation(), test::presetsPath);
  home.step("tap \"Add\"");
  home.step("enter \"Home\"");
  home.step("choose \"Cancel\"");
  home.wait(1);
  EXPECT_EQ(test::stateOf(home.simulation(), test::presetsPath), before);
  EXPECT_EQ(home.names(), Json::array({"one"}));
}

TEST(Saving, BeginsWithWhatTheFileHoldsNow) {
  PresetsHome home(layouts({"one"}));
  home.open();
  home.write(test::presetsPath, test::presetsDocument(Json(layouts({"one", "from elsewhere"}))));
  home.saveAs("Home");
  EXPECT_EQ(home.records(), (Records{{"one", 0}, {"from elsewhere", 1}, {"Home", 2}}));
}

TEST(Saving, ShowsTheNewLayoutAtOnce) {
  PresetsHome home(layouts({"one"}));
  home.open();
  home.saveAs("Home");
  home.step("page 1");
  home.step("tap \"Home\"");
  home.wait(1);
  EXPECT_EQ(home.panel().rowSelected(), 1);
}

struct NamedCase {
  const char* what;
  std::string name;
};
void PrintTo(const NamedCase& one, std::ostream* out) { *out << one.what; }

class AName : public testing::TestWithParam<NamedCase> {};

std::string quoted(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result;
}

TEST_P(AName, IsKeptAsItWasTyped) {
  PresetsHome home({});
  home.open();
  home.saveAs(quoted(GetParam().name));
  EXPECT_EQ(home.stored()[0]["name"], GetParam().name);
  home.step("page 1");
  EXPECT_EQ(home.names(), Json::array({GetParam().name}));
  home.step("tap \"Select\"");
  EXPECT_EQ(sim::plain(home.controller().currentPreset())["name"], GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Of, AName,
                         testing::Values(NamedCase{"Quotes", "\"Home\" 'sweet' \\ home"},
                                         NamedCase{"Emoji", "🏠👩‍👩‍👧🇩🇪"},
                                         NamedCase{"RightToLeft", "שלום עולם"}, NamedCase{"Blanks", "   "},
                                         NamedCase{"Slashes", "a/b//c"},
                                         NamedCase{"Json", "{\"configurations\":[]}"},
                                         NamedCase{"Percents", "%@ %s %d"}, NamedCase{"OneLetter", "x"}));

TEST(Saving, TakesANameOfTenThousandCharacters) {
  PresetsHome home({});
  home.open();
  home.step("tap \"Add\"");
  home.step("wait 1");
  std::string name;
  for (int i = 0; i < 10000; ++i) name += static_cast<char>('a' + i % 26);
  nameField().insertText(NSString::stringWithUTF8String(name.c_str()));
  home.step("choose \"Add\"");
  home.wait(1);
  EXPECT_EQ(home.stored()[0]["name"], name);
  home.step("page 1");
  EXPECT_EQ(home.names(), Json::array({name}));
}

TEST(Saving, TakesTheSameNameTwice) {
  PresetsHome home({});
  home.open();
  home.saveAs("Home");
  home.step("increment \"Top Inset\"");
  home.step("wait 4");
  home.saveAs("Home");
  EXPECT_EQ(home.records(), (Records{{"Home", 0}, {"Home", 1}}));
  EXPECT_NE(home.stored()[0]["configuration"]["top_inset"], home.stored()[1]["configuration"]["top_inset"]);
  EXPECT_EQ(home.names(), Json({"Home", "Home"}));
}

TEST(Saving, AfterAMiddleOneWasDeletedRepeatsAValue) {
  PresetsHome home(layouts({"one", "two", "three"}), {"showed-setup=YES"});
  home.openPresets();
  home.step("pick 1");
  home.step("tap \"Delete\"");
  home.wait(1);
  home.saveAs("four");
  EXPECT_EQ(home.records(), (Records{{"one", 0}, {"three", 2}, {"four", 2}}));
  home.step("page 1");
  home.step("pick 2");
  home.step("tap \"Select\"");
  EXPECT_EQ(sim::plain(home.controller().currentPreset())["name"], "four");
}

TEST(Saving, SurvivesARestart) {
  const sim::TemporaryRoot root;
  const std::string script = "swipe up\nwait 1\ntap \"Add\"\nenter \"Home\"\nchoose \"Add\"\nwait 1\n";
  const test::Run first = test::runSimulator({"--root", root.path(), "--script", "-"}, script);
  ASSERT_EQ(first.status, 0) << first.errors;
  test::Home home({"--root", root.path()});
  home.step("swipe up");
  EXPECT_EQ(home.report()["panel"]["presets"], Json::array({"Home"}));
  EXPECT_EQ(home.report()["panel"]["caption"], "Saved Presets");
}

}  // namespace
