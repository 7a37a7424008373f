// What SpringBoard does through messages that differ by system version: making its objects, launching,
// turning, telling that it is locked.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/springboard/lock_screen.hpp"
#include "platform/springboard/ui_controller.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::original;
using sim::Json;
using Calls = std::vector<std::string>;

Calls calls;

struct Locked : bridge::Face<"SBLockScreenManager", SBLockScreenManager> {
  MESSAGE Method<"isUILocked", BOOL()> isUILocked;
};

// Notes each call of what it replaces.
struct Watch {
  static void plain(SBUIController self, SBApplication application) {
    calls.push_back("plain " + std::string(application.displayName().UTF8String()));
    original<plain>(self, application);
  }
  static void fromIcon(SBUIController self, SBApplication application, SBIcon icon, NSInteger location) {
    calls.push_back("from icon " + std::string(application.displayName().UTF8String()));
    original<fromIcon>(self, application, icon, location);
  }
  static void withSettings(SBUIController self, SBApplication application, SBIcon icon, NSInteger location,
                           bridge::Object settings, bridge::Object actions) {
    calls.push_back("with settings " + std::string(application.displayName().UTF8String()));
    original<withSettings>(self, application, icon, location, settings, actions);
  }
  static void ownDidRotate(SBIconController self, NSInteger from) {
    calls.push_back("SpringBoard's");
    original<ownDidRotate>(self, from);
    calls.push_back("done");
  }
  static void didRotate(SBIconController self, NSInteger from) {
    calls.push_back("UIKit's");
    original<didRotate>(self, from);
  }
  static bridge::Strong<NSObject> controllerInit(SBIconController self) {
    calls.push_back("init");
    return original<controllerInit>(self);
  }
  static bridge::Strong<UIViewController> controllerInitWithNib(SBIconController self, NSString name,
                                                                NSBundle bundle) {
    calls.push_back("initWithNibName");
    return original<controllerInitWithNib>(self, name, bundle);
  }
  static bridge::Strong<NSObject> scrollInit(SBIconScrollView self) {
    calls.push_back("init");
    return original<scrollInit>(self);
  }
  static bridge::Strong<UIView> scrollInitWithFrame(SBIconScrollView self, CGRect frame) {
    calls.push_back("initWithFrame");
    return original<scrollInitWithFrame>(self, frame);
  }
};

std::vector<std::string> realOptions(const char* version, const char* device = "iPhone 6") {
  return {"--stock", "--springboard", "real", "--device", device, "--ios", version};
}

struct Launch {
  const char *version, *call;

  friend void PrintTo(const Launch& launch, std::ostream* stream) { *stream << launch.version; }
};

class Launching : public testing::TestWithParam<Launch> {
 protected:
  test::Home home{realOptions(GetParam().version)};
  std::string name = home.report()["pages"][0]["icons"][0]["name"];

  void SetUp() override {
    bridge::install(bridge::replace<SBUIController, &SBUIController::activateApplication, Watch::plain>());
    bridge::install(bridge::replace<SBUIController, &SBUIController::activateApplication_fromIcon_location,
                                    Watch::fromIcon>());
    bridge::install(
        bridge::replace<SBUIController,
                        &SBUIController::activateApplication_fromIcon_location_activationSettings_actions,
                        Watch::withSettings>());
  }
};

TEST_P(Launching, GoesThroughTheMessageOfTheVersion) {
  home.step("launch \"" + name + "\"");
  EXPECT_EQ(calls, Calls{GetParam().call + (" " + name)});
  EXPECT_EQ(home.report()["application"], name);
}

INSTANTIATE_TEST_SUITE_P(Versions, Launching,
                         testing::Values(Launch{"9.2", "from icon"}, Launch{"10.3.3", "from icon"},
                                         Launch{"11.0", "with settings"}, Launch{"12.1", "with settings"}));

using LaunchingPlainly = Launching;

TEST_P(LaunchingPlainly, GoesThroughTheShorterMessageWhereThereIsOne) {
  sim::springboard::useLaunchMessage(sim::springboard::LaunchMessage::plain);
  home.step("launch \"" + name + "\"");
  EXPECT_EQ(calls, Calls{GetParam().call + (" " + name)});
  EXPECT_EQ(home.report()["application"], name);
}

INSTANTIATE_TEST_SUITE_P(Versions, LaunchingPlainly,
                         testing::Values(Launch{"9.2", "plain"}, Launch{"10.3.3", "plain"},
                                         Launch{"11.0", "with settings"}, Launch{"12.1", "with settings"}));

void watchInitialisers(sim::Simulation&) {
  bridge::install(bridge::replace<SBIconController, &NSObject::init, Watch::controllerInit>());
  bridge::install(bridge::replace<SBIconController, &UIViewController::initWithNibName_bundle,
                                  Watch::controllerInitWithNib>());
}

TEST(HomeController, IsMadeByItsOwnInitUpToSystem10) {
  test::Home home(realOptions("10.3.3"), watchInitialisers);
  EXPECT_EQ(calls, (Calls{"init", "initWithNibName"}));  // UIKit's init leads there
}

TEST(HomeController, IsMadeWithANibNameFromSystem11On) {
  test::Home home(realOptions("11.0"), watchInitialisers);
  EXPECT_EQ(calls, Calls{"initWithNibName"});
}

void watchScrollViews(sim::Simulation&) {
  bridge::install(bridge::replace<SBIconScrollView, &NSObject::init, Watch::scrollInit>());
  bridge::install(bridge::replace<SBIconScrollView, &UIView::initWithFrame, Watch::scrollInitWithFrame>());
}

TEST(HomeScrollView, IsMadeByInit) {
  test::Home home(realOptions("10.3.3"), watchScrollViews);
  EXPECT_EQ(calls, (Calls{"init", "initWithFrame"}));
}

TEST(HomeScrollView, IsMadeWithAFrameWhenToldSo) {
  test::Home home(realOptions("10.3.3"), [](sim::Simulation& simulation) {
    using enum sim::springboard::ScrollViewInitialiser;
    sim::springboard::useScrollViewInitialiser(initWithFrame);
    watchScrollViews(simulation);
  });
  EXPECT_EQ(calls, Calls{"initWithFrame"});
  home.step("open \"Extras\"");
  EXPECT_EQ(calls, (Calls{"initWithFrame", "initWithFrame"}));
}

class OnEachSystem : public testing::TestWithParam<const char*> {};

TEST_P(OnEachSystem, TurningIsToldBySpringBoardsMessageWhichLeadsToUIKits) {
  test::Home home(realOptions(GetParam(), "iPad Air 2"));
  bridge::install(bridge::replace<SBIconController, &SBIconController::_didRotateFromInterfaceOrientation,
                                  Watch::ownDidRotate>());
  bridge::install(bridge::replace<SBIconController, &UIViewController::didRotateFromInterfaceOrientation,
                                  Watch::didRotate>());
  home.step("rotate landscape");
  EXPECT_EQ(calls, (Calls{"SpringBoard's", "UIKit's", "done"}));
}

TEST_P(OnEachSystem, TheLockIsToldByWhoeverKnows) {
  test::Home home(realOptions(GetParam(), "iPad Air 2"));
  const auto manager = bridge::as<Locked>(SBLockScreenManager::sharedInstance());
  const SBLockScreenViewController controller = manager.lockScreenViewController();
  const SEL visible = bridge::selector<"isLockScreenVisible">();
  const bool nine = GetParam()[0] == '9';
  EXPECT_EQ(bool(manager.respondsToSelector(visible)), !nine);
  EXPECT_EQ(bool(controller.respondsToSelector(visible)), nine);
  const auto isVisible = [&] {
    return nine ? controller.isLockScreenVisible.ifAnswered() : manager.isLockScreenVisible.ifAnswered();
  };
  EXPECT_FALSE(isVisible() || manager.isUILocked());
  home.step("lock");
  EXPECT_TRUE(isVisible() && manager.isUILocked());
  home.step("unlock");
  EXPECT_FALSE(isVisible() || manager.isUILocked());
}

TEST_P(OnEachSystem, TheDotsFollowThePage) {
  test::Home home(realOptions(GetParam(), "iPad Air 2"));
  EXPECT_EQ(home.report()["pageDots"]["current"], 0);
  home.step("swipe left");
  home.step("wait 1");
  EXPECT_EQ(home.report()["pageDots"]["current"], 1);
  home.step("rotate landscape");
  EXPECT_EQ(home.report()["pageDots"]["current"], 1);
}

TEST_P(OnEachSystem, TheDockIsSpreadWhateverItCanBeAsked) {
  test::Home home(realOptions(GetParam(), "iPad Air 2"));
  Json dock = home.report()["dock"];
  const bool spaced = std::string(GetParam()).starts_with("1") && GetParam()[1] != '0';
  EXPECT_EQ(dock["spacing"].isNull(), !spaced);
  EXPECT_EQ(dock["effectiveSpacing"].isNull(), !spaced);
  double first = dock["icons"][0]["frame"][0], second = dock["icons"][1]["frame"][0];
  EXPECT_GT(first, 0);
  EXPECT_GT(second, first + dock["icons"][0]["frame"][2].get<double>());
}

TEST_P(OnEachSystem, AFolderAnswersForItsClassByInheritance) {
  test::Home home(realOptions(GetParam(), "iPad Air 2"));
  Json report = home.report();
  EXPECT_EQ(report["folder"]["classRows"], 4);
  EXPECT_EQ(report["classRows"], 5);
}

INSTANTIATE_TEST_SUITE_P(Versions, OnEachSystem,
                         testing::Values("9.2", "9.3.5", "10.1", "10.3.3", "11.0", "12.1"));

}  // namespace
