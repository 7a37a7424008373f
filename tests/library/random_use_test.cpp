// Thousands of random touches and messages: the home screen goes on, and keeps nothing that it need not keep.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "simulator/app/report_parts.hpp"
#include "tests/support/home.hpp"
#include "tests/support/memory.hpp"

namespace {

using test::allocatedBytes;
using test::Home;

constexpr int batches = 10, stepsInABatch = 300;

// Steps that any hand could make, and messages with values within the settings' ranges.
class Hand {
 public:
  Hand(uint64_t seed, CGSize screen) : random(seed), size(screen) {}

  std::string next() {
    switch (number(0, 15)) {
      case 0:
        return "swipe " + direction() + place();
      case 1:
        return "two-finger-tap" + place();
      case 2:
        return "press " + std::to_string(number(1, 6)) + place();
      case 3:
        return "drag" + place() + place() + " 0.2";
      case 4:
        return "edit";
      case 5:
      case 6:
        return "home";
      case 7:
        return "wait 0.7";
      case 8:
        return "message ListPreferencesDidChangeNotification name=" + spacing() +
               " index=" + std::to_string(number(-20, 100));
      case 9:
        return "message ListPreferencesDidChangeNotification name=dockIcons index=" +
               std::to_string(number(1, 8));
      case 10:
        return "message PreferencesDidChangeNotification name=\"" + title() + "\" value=" + flag();
      case 11:
        return "message ListPreferencesDidChangeNotification name=" + aSwitch() + " index=" + flag();
      case 12:
        return number(0, 1) ? "rotate landscape" : "rotate portrait";
      default:
        return "tap" + place();
    }
  }

 private:
  int number(int least, int most) { return std::uniform_int_distribution(least, most)(random); }
  std::string pick(std::initializer_list<const char*> of) {
    return of.begin()[number(0, static_cast<int>(of.size()) - 1)];
  }
  std::string direction() { return pick({"up", "down", "left", "right"}); }
  std::string spacing() {
    return pick({"vertIconPadding", "horiIconPadding", "sideIconInset", "topIconInset"});
  }
  std::string title() {
    return pick({"Use Two Finger Tap Instead", "Enable Quick Settings", "Quick Settings Dark Mode", "Other"});
  }
  std::string aSwitch() {
    return pick({"labels", "page", "square", "dock", "dockIconsEnabled", "forceTouch"});
  }
  std::string flag() { return pick({"YES", "NO"}); }
  // A point that is on the screen whichever way it is turned.
  std::string place() {
    int side = static_cast<int>(std::min(size.width, size.height)) - 1;
    return " " + std::to_string(number(0, side)) + " " + std::to_string(number(0, side));
  }

  std::mt19937_64 random;
  CGSize size;
};

// Closes the panel that is open, if one is, and opens and closes another, so that one that was used for a
// while is kept by nobody.
void closePanel(Home& home) {
  const bridge::Pool pool;
  auto controller = tilo::RQGestureController::sharedInstance();
  for (int i = 0; i < 2; ++i) {
    controller.popView().didHitCancel();
    home.step("wait 4");  // a press's timer keeps its panel for three seconds
    if (i == 0) controller.showPopup();
    home.step("wait 1");
  }
}

// Answers the alert that asks for something, if one does, by its last button.
void answerAlert(Home& home) {
  const bridge::Pool pool;  // or the alert's actions, and the panel with them, would live as long as the test
  const sim::Json alert = sim::reportAlert(home.simulation());
  if (alert.isNull()) return;
  home.step("choose \"" + alert["actions"].back().get<std::string>() + "\"");
  home.step("wait 1");
}

// Back to a quiet home screen with the same looks, so that like is compared with like: what is drawn takes
// memory.
void settle(Home& home) {
  for (const char* leave : {"home", "wait 1", "home", "wait 1", "home", "wait 1"}) home.step(leave);
  for (const char* on : {"labels", "page", "enabled"})
    home.step(std::string("message ListPreferencesDidChangeNotification index=YES name=") + on);
  for (const char* off : {"square", "dock", "dockIconsEnabled"})
    home.step(std::string("message ListPreferencesDidChangeNotification index=NO name=") + off);
  for (const char* spacing : {"vertIconPadding", "horiIconPadding", "sideIconInset", "topIconInset"})
    home.step(std::string("message ListPreferencesDidChangeNotification index=20 name=") + spacing);
  for (const char* turn : {"rotate portrait", "rotate landscape", "wait 1", "rotate portrait", "wait 1"})
    home.step(turn);
  answerAlert(home);
  closePanel(home);
}

class RandomUse : public testing::TestWithParam<const char*> {};

TEST_P(RandomUse, LeavesTheHomeScreenRunningAndItsMemoryFlat) {
  Home home({"--device", GetParam(), "--set", "enabled=YES", "--set", "quick=YES", "--set", "labels=YES",
             "--set", "page=YES", "--set", "forceTouch=YES", "--set", "custom_preset=-1"});
  Hand hand(20181105, home.simulation().device().points);
  // What an application or a folder draws once may be drawn at any time: it is drawn before all else.
  for (const char* visit : {"launch \"Calendar\"", "wait 1", "home", "wait 1", "open \"Extras\"", "wait 1"})
    home.step(visit);
  std::vector<size_t> bytes;
  for (int batch = 0; batch < batches; ++batch) {
    for (int i = 0; i < stepsInABatch; ++i) {
      std::string step = hand.next();
      try {
        home.step(step);
      } catch (const std::exception& error) {
        FAIL() << "step " << batch * stepsInABatch + i << " \"" << step << "\": " << error.what();
      }
    }
    settle(home);
    bytes.push_back(allocatedBytes());
  }
  sim::Json report = home.report();
  EXPECT_EQ(report["pages"].size(), 3);
  // The first batches draw what has not been seen yet. After them a leak of 73 bytes a step would take more
  // than this. The least of three batches counts, since one may end with something shown that others do not
  // show.
  constexpr int compared = 3;
  constexpr size_t allowance = 64 * 1024;
  const auto last = bytes.end() - compared;
  EXPECT_LE(*std::min_element(last, bytes.end()), *std::min_element(last - compared, last) + allowance)
      << testing::PrintToString(bytes);
}

INSTANTIATE_TEST_SUITE_P(OnADevice, RandomUse, testing::Values("iPhone 7", "iPhone 8 Plus", "iPad Air 2"),
                         [](const auto& test) {
                           std::string name;
                           for (char c : std::string(test.param))
                             if (std::isalnum(static_cast<unsigned char>(c))) name += c;
                           return name;
                         });

}  // namespace
