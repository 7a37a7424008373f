// A home screen whose Settings show the library's page, and what a finger does there.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/uikit/stepper.hpp"
#include "simulator/preferences/shown_rows.hpp"
#include "tests/support/home.hpp"

namespace test {

class PaneHome : public Home {
 public:
  explicit PaneHome(std::vector<std::string> options = {}) : Home(std::move(options)) { step("settings"); }

  void scrollTo(const std::string& title) { step("scroll-to \"" + title + "\""); }
  void toggle(const std::string& title) {
    scrollTo(title);
    step("toggle \"" + title + "\"");
    step("wait 0.3");
  }
  void slide(const std::string& title, const std::string& value) {
    scrollTo(title);
    step("slide \"" + title + "\" " + value);
  }
  // By the stepper.
  void count(const std::string& title, int wanted) {
    scrollTo(title);
    const int way = wanted - static_cast<int>(stepper(title).value());
    if (way)
      step((way > 0 ? "increment \"" : "decrement \"") + title + "\" " + std::to_string(std::abs(way)));
  }
  // Through a list of choices and back.
  void choose(const std::string& title, const std::string& choice) {
    open(title);
    scrollTo(choice);
    tap(choice);
    back();
  }
  void open(const std::string& title) {
    scrollTo(title);
    tap(title);
  }
  void back() { tap("Tilo"); }
  void tap(const std::string& name) {
    step("tap \"" + name + "\"");
    step("wait 0.5");
  }
  // The home screen again.
  void leave() {
    step("home");
    step("wait 0.5");
  }

  static UIView control(const std::string& title) {
    return sim::preferences::controlOf(sim::preferences::shownCell(title));
  }
  static UIStepper stepper(const std::string& title) { return bridge::as<UIStepper>(control(title)); }

  sim::Json stored(const std::string& key) { return report()["preferences"].value(key); }
};

}  // namespace test
