// Home screens on which the Quick Settings panel is opened.
#pragma once

#include <cmath>
#include <string>
#include <vector>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "simulator/runtime/preferences.hpp"
#include "tests/library/grid_home.hpp"

namespace test {

inline std::vector<std::string> panelSettings(const std::vector<std::string>& more = {}) {
  std::vector<std::string> settings{"enabled=YES",        "quick=YES",        "labels=YES",
                                    "page=YES",           "custom_preset=-1", "sideIconInset=27",
                                    "horiIconPadding=27", "topIconInset=30",  "vertIconPadding=14"};
  settings.insert(settings.end(), more.begin(), more.end());
  return settings;
}

class PanelHome : public Home {
 public:
  explicit PanelHome(const std::vector<std::string>& settings = {}, const std::vector<std::string>& more = {},
                     const std::string& device = "iPhone 7")
      : Home(homeOptions(device, panelSettings(settings), more)) {}

  static tilo::RQGestureController controller() { return tilo::RQGestureController::sharedInstance(); }
  // The one that was opened last.
  static tilo::RQPopupView panel() { return controller().popView(); }

  // Opens the panel and lets it come to rest.
  void open() {
    step("swipe up");
    step("wait 1");
  }
  // One finger, by hand.
  void finger(const char* phase, CGPoint place) {
    step(std::string("finger 1 ") + phase + " " + std::to_string(place.x) + " " + std::to_string(place.y));
  }
  void wait(double seconds) { step("wait " + std::to_string(seconds)); }
  // What is reported of the panel; null when none is on screen.
  sim::Json shown() { return report()["panel"]; }
  // A preference as another process would read it, and as the panel has it.
  static sim::Json stored(NSString key) {
    return sim::plain(sim::preferenceDomain("com.wexor.tilo"_ns).objectForKey(key));
  }
  static sim::Json live(NSString key) { return sim::plain(controller().rootObj().objectForKey(key)); }
};

// How far a spring has come after `time` of its `duration` (seconds), from 0 to 1 and beyond: one that begins
// at rest, whose envelope has shrunk to a thousandth at its end.
inline double springProgress(double time, double duration, double dampingRatio) {
  if (time >= duration) return 1;
  double damped = std::sqrt(1 - dampingRatio * dampingRatio);
  double frequency = -std::log(0.001 * damped / dampingRatio) / (dampingRatio * duration);
  double turn = frequency * damped * time;
  return 1 - std::exp(-dampingRatio * frequency * time) *
                 (std::cos(turn) + dampingRatio / damped * std::sin(turn));
}

}  // namespace test
