// Turning the device: who is told what, when.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "platform/uikit/screen.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/springboard/springboard.hpp"
#include "simulator/uikit/views/view_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::original;
using sim::Json;

std::vector<std::string> calls;
using Calls = std::vector<std::string>;

double screenWidth() { return UIScreen::mainScreen().bounds().size.width; }

// With the time and the width of the screen as they are at that moment.
void note(const char* what, NSInteger orientation) {
  calls.push_back(fmt::format("{} {} at {} on {}", what, orientation, sim::clock::now(), screenWidth()));
}

struct Watch {
  static void will(SBIconController self, NSInteger to, double duration) {
    note("will", to);
    EXPECT_EQ(duration, 0.4);
    original<will>(self, to, duration);
  }
  static void willAnimate(SBIconController self, NSInteger to, double duration) {
    note("animates", to);
    EXPECT_EQ(duration, 0.4);
    original<willAnimate>(self, to, duration);
  }
  static void did(SBIconController self, NSInteger from) {
    note("did from", from);
    original<did>(self, from);
  }

  static void install() {
    using bridge::replace;
    using Controller = SBIconController;
    bridge::install(
        replace<Controller, &UIViewController::willRotateToInterfaceOrientation_duration, will>());
    bridge::install(replace<Controller, &UIViewController::willAnimateRotationToInterfaceOrientation_duration,
                            willAnimate>());
    bridge::install(replace<Controller, &UIViewController::didRotateFromInterfaceOrientation, did>());
  }
};

TEST(Rotation, TellsTheControllerBeforeWhileAndAfterItTurns) {
  test::Home home({"--stock", "--device", "iPad Air 2"});
  Watch::install();
  home.step("wait 1");
  home.step("rotate landscape");
  EXPECT_EQ(calls, (Calls{"will 3 at 1 on 768", "animates 3 at 1 on 1024", "did from 1 at 1.4 on 1024"}));
  calls.clear();
  home.step("rotate portrait");
  EXPECT_EQ(calls, (Calls{"will 1 at 1.4 on 1024", "animates 1 at 1.4 on 768", "did from 3 at 1.8 on 768"}));
}

std::vector<CGSize> sizes;
void willTransition(SBIconController self, CGSize size, bridge::Object coordinator) {
  EXPECT_EQ(calls, Calls{}) << "first of all";
  sizes.push_back(size);
  original<willTransition>(self, size, coordinator);
}

TEST(Rotation, TellsTheControllerTheSizeToCome) {
  test::Home home({"--stock", "--device", "iPad Air 2"});
  Watch::install();
  bridge::install(
      bridge::replace<SBIconController,
                      &sim::uikit::SizeTransitions::viewWillTransitionToSize_withTransitionCoordinator,
                      willTransition>());
  home.step("rotate landscape");
  calls.clear();
  home.step("rotate portrait");
  EXPECT_EQ(sizes, (std::vector<CGSize>{{1024, 768}, {768, 1024}}));
}

TEST(Rotation, TellsNobodyWhereTheHomeScreenDoesNotTurn) {
  test::Home home({"--stock", "--device", "iPhone 7"});
  Watch::install();
  Json before = home.report();
  home.step("rotate landscape");
  EXPECT_EQ(calls, Calls{});
  Json after = home.report();
  EXPECT_EQ(after["time"], 0.4);
  EXPECT_EQ(after["pages"], before["pages"]);
}

TEST(Rotation, TellsNobodyWhenTheDeviceIsThatWayAlready) {
  test::Home home({"--stock", "--device", "iPad Air 2"});
  Watch::install();
  home.step("rotate portrait");
  EXPECT_EQ(calls, Calls{});
}

TEST(Rotation, GoesOnBehindTheLockScreen) {
  test::Home home({"--stock", "--device", "iPad Air 2"});
  Watch::install();
  home.step("lock");
  home.step("rotate landscape");
  EXPECT_EQ(calls.size(), 3u);
  EXPECT_EQ(home.page(0).iconColumnsForCurrentOrientation(), 5u);
}

TEST(Rotation, EndsWhereADeviceStartsThatIsHeldThatWay) {
  for (const char* device : {"iPad Air 2", "iPhone 7 Plus"}) {
    auto run = [&](std::vector<std::string> options, const char* script) {
      options.insert(options.end(), {"--stock", "--device", device, "--script", "-", "--report", "-"});
      Json report = Json::parse(test::runSimulator(options, script).output);
      report.erase("orientation");  // that of the start
      return report;
    };
    Json turned = run({}, "rotate landscape\n"), started = run({"--orientation", "landscape"}, "wait 0.4\n");
    EXPECT_EQ(turned, started) << device;
  }
}

TEST(Rotation, IsOnItsWayHalfThrough) {
  test::Home home({"--stock", "--device", "iPad Air 2"});
  // The first icon of the second row, which goes up to the first.
  auto y = [&] { return home.report()["pages"][0]["icons"][4]["frame"][1].get<double>(); };
  double before = y();
  ASSERT_TRUE(sim::springboard::beginRotation(sim::Orientation::landscape));
  EXPECT_EQ(y(), before);
  home.step("wait 0.2");
  double within = y();
  home.step("wait 0.2");
  EXPECT_LT(within, before);
  EXPECT_GT(within, y());
  EXPECT_EQ(y(), home.report()["pages"][0]["icons"][0]["frame"][1]);
}

}  // namespace
