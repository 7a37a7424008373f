// What the hand can do, and how often it does it.
#include "tests/monkey/hand.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "simulator/app/report_parts.hpp"
#include "simulator/product/panel.hpp"

namespace test::monkey {

std::string Hand::next(Home& home) {
  const bridge::Pool pool;
  const CGSize screen = home.simulation().device().points;
  const sim::Json alert = sim::reportAlert(home.simulation());
  if (!alert.isNull() && chance(70)) return answer(alert);
  if (sim::product::shownPanel() && chance(70)) return withPanel(screen);
  return chance(85) ? anywhere(screen) : byOthers();
}

std::string Hand::pick(std::initializer_list<const char*> of) {
  return of.begin()[number(0, static_cast<int>(of.size()) - 1)];
}

// On the screen whichever way it is turned.
std::string Hand::place(CGSize screen) {
  const int side = static_cast<int>(std::min(screen.width, screen.height)) - 1;
  return fmt::format("{} {}", number(0, side), number(0, side));
}

std::string Hand::value() {
  return chance(70) ? fmt::format("{}", number(-30, 130))
                    : fmt::format("{:.1f}", number(-30'000, 620'000) / 1000.0);
}

std::string Hand::title() {
  return pick({"Horizontal Padding", "Vertical Padding", "Side Inset", "Top Inset"});
}

std::string Hand::answer(const sim::Json& alert) {
  if (!alert["text"].isNull() && chance(50))
    return fmt::format("enter \"{}\"", pick({"Home", "a", "Night", "0", "", "ABC def"}));
  if (chance(5)) return "dismiss";
  const int last = static_cast<int>(alert["actions"].size()) - 1;
  return fmt::format("choose \"{}\"",
                     alert["actions"][static_cast<size_t>(number(0, last))].get<std::string>());
}

std::string Hand::withPanel(CGSize screen) {
  switch (number(0, 17)) {
    case 0:
    case 1:
      return fmt::format("increment \"{}\" {}", title(), number(1, 5));
    case 2:
    case 3:
      return fmt::format("decrement \"{}\" {}", title(), number(1, 5));
    case 4:
    case 5:
      return fmt::format("slide \"{}\" {}", title(), number(0, 100));
    case 6:
      return fmt::format("type \"{}\" \"{}\"", title(), value());
    case 7:
      return fmt::format("paste \"{}\" \"{}\"", title(), pick({"12", "-7.5", "nan", "rubbish", "1e9", ""}));
    case 8:
      return fmt::format("apply \"{}\"", title());
    case 9:
      return fmt::format("cancel \"{}\"", title());
    case 10:
    case 11:
      return fmt::format("page {}", number(0, 1));
    case 12:
      return fmt::format("pick {}", number(0, 3));
    case 13:
    case 14:
      return fmt::format("tap \"{}\"", pick({"Add", "Delete", "Select", "Close"}));
    case 15:
      return fmt::format("call {}", pick({"exportSettings", "openSettings"}));
    default:
      return "tap " + place(screen);
  }
}

std::string Hand::anywhere(CGSize screen) {
  switch (number(0, 19)) {
    case 0:
    case 1:
    case 2:
      return "swipe up";
    case 3:
      return fmt::format("swipe {} {}", pick({"up", "down", "left", "right"}), place(screen));
    case 4:
      return "two-finger-tap";
    case 5:
      return fmt::format("press {} {}", number(1, 6), place(screen));
    case 6:
      return fmt::format("drag {} {} 0.2", place(screen), place(screen));
    case 7:
      return "edit";
    case 8:
    case 9:
      return "home";
    case 10:
      return fmt::format("wait {}", pick({"0.05", "0.3", "1", "4", "100000"}));
    case 11:
      return fmt::format("rotate {}", pick({"portrait", "landscape"}));
    case 12:
      return chance(30) ? "lock" : "unlock";
    case 13:
      return "launch \"" + pick({"Calendar", "Phone", "Settings"}) + "\"";
    case 14:
      return "open \"Extras\"";
    case 15:
      return "settings";
    case 16:
      return "toggle \"" +
             pick({"Enabled", "Show Icon Labels", "Show Page Dots", "Square Icons", "Hide Dock",
                   "Enable Quick Settings", "Use Two Finger Tap Instead", "Quick Settings Dark Mode",
                   "Custom Rows and Columns"}) +
             "\"";
    default:
      return "tap " + place(screen);
  }
}

// Settings and other processes. What nobody tells the library of is limited to what is read at every look.
std::string Hand::byOthers() {
  switch (number(0, 5)) {
    case 0:
      return fmt::format("message ListPreferencesDidChangeNotification name={} index={}",
                         pick({"vertIconPadding", "horiIconPadding", "sideIconInset", "topIconInset"}),
                         number(-20, 100));
    case 1:
      return fmt::format("message ListPreferencesDidChangeNotification name={} index={}",
                         pick({"rows", "columns", "dockIcons"}), number(1, 8));
    case 2:
      return fmt::format(
          "message PreferencesDidChangeNotification name=\"{}\" value={}",
          pick({"Use Two Finger Tap Instead", "Enable Quick Settings", "Quick Settings Dark Mode", "Other"}),
          pick({"YES", "NO"}));
    case 3:
      return fmt::format(
          "message ListPreferencesDidChangeNotification name={} index={}",
          pick({"labels", "page", "square", "dock", "dockIconsEnabled", "forceTouch", "icons"}),
          pick({"YES", "NO"}));
    case 4:
      return fmt::format("write {}={}",
                         pick({"labels", "dock", "isDarkMode", "qsBackgroundColor", "dockIcons"}),
                         pick({"YES", "NO", "3", "-1", "x"}));
    default:
      return fmt::format(
          "write-presets \"{}\"",
          pick({R"({\"configurations\":[]})", R"({\"configurations\":[null,{\"name\":5}]})",
                R"({\"configurations\":[{\"name\":\"A\",\"value\":0,\"configurable\":1}]})", "{", ""}));
  }
}

}  // namespace test::monkey
