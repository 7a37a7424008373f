// Other people's libraries that took our names first, and the library loaded twice.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "bridge/replace.hpp"
#include "platform/foundation/bundle.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "simulator/device/image.hpp"
#include "simulator/device/temporary_root.hpp"
#include "simulator/runtime/hooking.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using sim::Json;
using test::Home;
using Names = std::vector<std::string>;

const Names ours{
    "BButton",        "ColorSlider",         "ConfigurationManager", "DPHLogger",     "RQBarProgressView",
    "RQColorManager", "RQGestureController", "RQPopupView",          "RQProgressHUD", "RQRoundProgressView",
    "value"};

std::vector<std::string> options() { return test::homeOptions("iPhone 7", test::panelSettings(), {}); }

// A class that answers nothing but what every object does: a message meant for ours raises.
void take(const Names& names) {
  for (const std::string& name : names) {
    Class cls = objc_allocateClassPair(bridge::classNamed<NSObject>(), name.c_str(), 0);
    ASSERT_TRUE(cls) << name;
    objc_registerClassPair(cls);
  }
}

unsigned int methodsOf(Class cls) {
  unsigned int count = 0;
  std::free(class_copyMethodList(cls, &count));
  return count;
}

// What a person does with the panel, all of it.
const Names story{"swipe up",
                  "wait 1",
                  "increment \"Vertical Padding\" 2",
                  "decrement \"Horizontal Padding\"",
                  "slide \"Side Inset\" 100",
                  "wait 4",
                  "type \"Top Inset\" \"700\"",
                  "apply \"Top Inset\"",
                  "cancel \"Top Inset\"",
                  "type \"Top Inset\" \"44\"",
                  "apply \"Top Inset\"",
                  "wait 4",
                  "report",
                  "tap \"Add\"",
                  "wait 1",
                  "enter \"Mine\"",
                  "choose \"Add\"",
                  "wait 1",
                  "page 1",
                  "pick 0",
                  "call exportSettings",
                  "wait 0.4",
                  "report",
                  "wait 2",
                  "tap \"Select\"",
                  "choose \"Okay\"",
                  "wait 2",
                  "report",
                  "swipe up",
                  "wait 1",
                  "page 1",
                  "tap \"Delete\"",
                  "wait 1",
                  "tap \"collapse\"",
                  "wait 1",
                  "report",
                  "tap \"close\"",
                  "wait 1",
                  "rotate landscape",
                  "report"};

// The reports of the story in a process where nobody took a name.
const std::vector<Json>& expected() {
  static const std::vector<Json> reports = [] {
    const sim::TemporaryRoot folder;
    std::string script;
    size_t count = 0;
    for (const std::string& line : story)
      script += line == "report" ? line + " " + (folder.path() / std::to_string(count++)).string() + "\n"
                                 : line + "\n";
    std::vector<std::string> arguments = options();
    arguments.insert(arguments.end(), {"--script", "-"});
    const test::Run run = test::runSimulator(arguments, script);
    EXPECT_EQ(run.status, 0) << run.errors;
    std::vector<Json> all;
    for (size_t i = 0; i < count; ++i) {
      std::ifstream file(folder.path() / std::to_string(i));
      all.push_back(Json::parse({std::istreambuf_iterator<char>(file), {}}));
    }
    return all;
  }();
  return reports;
}

// A class of ours whose name is taken is "BButton.2"; in a report it may have its number.
std::string withoutNumbers(const Json& report) {
  std::string text = report.dump();
  for (size_t at; (at = text.find(".2\"")) != std::string::npos;) text.erase(at, 2);
  return text;
}

void expectStory(Home& home) {
  size_t reported = 0;
  for (const std::string& line : story) {
    SCOPED_TRACE(line);
    if (line == "report")
      EXPECT_EQ(withoutNumbers(home.report()), withoutNumbers(expected()[reported++])) << reported;
    else
      home.step(line);
  }
}

class TakenClass : public testing::TestWithParam<Names> {};

TEST_P(TakenClass, LeavesEverythingAsItIsAndGetsNothing) {
  Home home(options(), [](sim::Simulation&) { take(GetParam()); });
  expectStory(home);
  for (const std::string& name : GetParam()) {
    Class cls = objc_getClass(name.c_str());
    EXPECT_EQ(methodsOf(cls), 0u) << name;
    EXPECT_EQ(methodsOf(bridge::classOf(reinterpret_cast<id>(cls))), 0u) << name;
  }
}

std::vector<Names> oneByOneAndAll() {
  std::vector<Names> all;
  for (const std::string& name : ours) all.push_back({name});
  all.push_back(ours);
  return all;
}

INSTANTIATE_TEST_SUITE_P(Names, TakenClass, testing::ValuesIn(oneByOneAndAll()), [](const auto& test) {
  return test.param.size() == 1 ? test.param.front() : "AllOfThem";
});

// Methods of our categories' names that somebody gave the platform's classes first.
struct TheirBundle : bridge::Face<"NSBundle", NSBundle> {
  static constexpr bridge::ClassMethod<"NSBundle", "frameworkBundle", NSBundle()> frameworkBundle{};
};
struct TheirString : bridge::Face<"NSString", NSString> {
  static constexpr bridge::ClassMethod<"NSString", "fa_stringForFontAwesomeIcon:", NSString(NSUInteger)>
      fa_stringForFontAwesomeIcon{};
};

NSBundle noBundle(Class) { return {}; }
NSString noIcon(Class, NSUInteger) { return "?"_ns; }
UISwipeGestureRecognizer noSwipe(SBIconScrollView) { return {}; }
UITapGestureRecognizer noTap(SBIconScrollView) { return {}; }
void keepNoSwipe(SBIconScrollView, UISwipeGestureRecognizer) {}
void keepNoTap(SBIconScrollView, UITapGestureRecognizer) {}

void takeMethods(sim::Simulation&) {
  using bridge::add;
  using Scroll = SBIconScrollView;
  bridge::install(add<NSBundle, &TheirBundle::frameworkBundle, noBundle>("@@:"));
  bridge::install(add<NSString, &TheirString::fa_stringForFontAwesomeIcon, noIcon>("@@:Q"));
  bridge::install(add<Scroll, &Scroll::swipeGesture, noSwipe>("@@:"));
  bridge::install(add<Scroll, &Scroll::setSwipeGesture, keepNoSwipe>("v@:@"));
  bridge::install(add<Scroll, &Scroll::tapGesture, noTap>("@@:"));
  bridge::install(add<Scroll, &Scroll::setTapGesture, keepNoTap>("v@:@"));
}

// The count of methods that were added is smaller by those that were there.
Json withoutCounts(Json report) {
  report.erase("hooks");
  return report;
}

TEST(TakenMethods, LeaveThePanelAsItIs) {
  Home home(options(), takeMethods);
  size_t reported = 0;
  for (const std::string& line : story) {
    SCOPED_TRACE(line);
    if (line == "report")
      EXPECT_EQ(withoutCounts(home.report()), withoutCounts(expected()[reported++]));
    else
      home.step(line);
  }
  EXPECT_FALSE(TheirBundle::frameworkBundle());
  EXPECT_STREQ(TheirString::fa_stringForFontAwesomeIcon(1).UTF8String(), "?");
}

TEST(TakenMethods, LeaveTheButtonsTheirIcons) {
  Home home(options(), takeMethods);
  home.step("swipe up");
  home.step("wait 1");
  const tilo::RQPopupView panel = tilo::RQGestureController::sharedInstance().popView();
  EXPECT_STREQ(panel.toggleButton().currentTitle().UTF8String(), "\uF139");
  EXPECT_STREQ(panel.horSlider().addButton().currentTitle().UTF8String(), "\uF067");
  EXPECT_EQ(panel.toggleButton().titleLabel().font().pointSize(), 25);
  const tilo::BButton alone = tilo::BButton::awesomeButtonWithOnlyIcon_type_style(0xF068, 0, 1);
  EXPECT_STREQ(alone.currentTitle().UTF8String(), "\uF068");
}

TEST(TakenMethods, LeaveTheGesturesTheirExchange) {
  Home home(options(), takeMethods);
  home.step("message PreferencesDidChangeNotification name=\"Use Two Finger Tap Instead\" value=YES");
  home.step("swipe up");
  home.step("wait 1");
  EXPECT_EQ(home.report()["panel"], nullptr);
  home.step("two-finger-tap");
  home.step("wait 1");
  EXPECT_NE(home.report()["panel"], nullptr);
}

TEST(TakenMethods, LeaveTheGesturesTheirSwitch) {
  Home home(options(), takeMethods);
  home.step("message PreferencesDidChangeNotification name=\"Enable Quick Settings\" value=NO");
  home.step("swipe up");
  home.step("wait 1");
  EXPECT_EQ(home.report()["panel"], nullptr);
}

// Two loaders hold a copy of the file each.
class Copy {
 public:
  explicit Copy(Home& home) {
    const std::filesystem::path file = folder.path() / "Copy.dylib";
    std::filesystem::copy_file(home.file("/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib"), file);
    std::string error;
    image = sim::image::open(file, error);
    EXPECT_TRUE(image) << error;
    EXPECT_NE(image, home.simulation().libraries().front());
  }

 private:
  sim::TemporaryRoot folder;
  void* image;
};

class Twice : public testing::TestWithParam<Names> {};

TEST_P(Twice, DoesNothingTheSecondTime) {
  Home home(options(), [](sim::Simulation&) { take(GetParam()); });
  const size_t replaced = sim::replacements().size();
  EXPECT_GT(replaced, 0u);
  const unsigned int added = methodsOf(bridge::classNamed<SBIconScrollView>());
  const Copy copy(home);
  EXPECT_EQ(sim::replacements().size(), replaced);
  EXPECT_EQ(methodsOf(bridge::classNamed<SBIconScrollView>()), added);
  expectStory(home);
}

const std::vector<const char*> takers{"NobodyTook", "ControllerTaken", "AllTaken"};

INSTANTIATE_TEST_SUITE_P(Names, Twice, testing::Values(Names{}, Names{"RQGestureController"}, ours),
                         [](const auto& test) { return takers[test.index]; });

}  // namespace
