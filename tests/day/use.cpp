// Everything is done by touches and by SpringBoard's own messages; each part ends with all at rest.
#include "tests/day/use.hpp"

#include <malloc.h>

#include "platform/springboard/icon_scroll_view.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/springboard.hpp"
#include "tests/support/memory.hpp"

// Foundation's own account of objects.
extern "C" {
signed char GSDebugAllocationActive(signed char active);
Class* GSDebugAllocationClassList();
int GSDebugAllocationCount(Class cls);
}

namespace test::day {
namespace {

void press(Home& home, int number) {
  // Up and down again, so that the day ends as it began.
  home.step(number % 2 ? "decrement \"Top Inset\"" : "increment \"Top Inset\"");
}

void saveAndDelete(Home& home) {
  for (const char* step : {"tap \"Add\"", "wait 1", "enter \"Of the day\"", "choose \"Add\"", "wait 1",
                           "page 1", "wait 1", "pick 0", "tap \"Delete\"", "wait 1", "page 0", "wait 1"})
    home.step(step);
}

void scroll(Home& home, int steps) {
  const SBIconScrollView view = sim::springboard::homeScreen().scrollView.get();
  const CGFloat width = view.bounds().size.width;
  CGFloat x = 0;
  for (int i = 0; i < steps; ++i) {
    const bridge::Pool pool;
    x = x > 2 * width ? 0 : x + 4;
    view.contentOffset.set({x, 0});
  }
  view.contentOffset.set({0, 0});
  home.step("wait 1");
}

// What is to be done by the `turn`th of `turns`, so that all of it is done in the end.
int share(int whole, int turn, int turns) { return whole * (turn + 1) / turns - whole * turn / turns; }

}  // namespace

void usePart(Home& home, const Amounts& day, int parts) {
  const int panels = day.panels / parts;
  for (int panel = 0; panel < panels; ++panel) {
    const bridge::Pool pool;
    home.step("swipe up");
    home.step("wait 1");
    for (int i = 0; i < share(day.presses / parts, panel, panels); ++i) press(home, i);
    home.step("wait 4");  // for the panel to have its colour back
    for (int i = 0; i < share(day.layouts / parts, panel, panels); ++i) saveAndDelete(home);
    home.step("tap \"close\"");
    home.step("wait 1");
    scroll(home, share(day.scrolls / parts, panel, panels));
    for (int i = 0; i < share(day.rotations / parts, panel, panels); ++i) {
      home.step(sim::springboard::orientation() == sim::Orientation::portrait ? "rotate landscape"
                                                                              : "rotate portrait");
      home.step("wait 1");
    }
  }
  if (sim::springboard::orientation() != sim::Orientation::portrait) home.step("rotate portrait");
  home.step("wait 10");
}

std::size_t memory() {
  if (const std::size_t counted = allocatedBytes()) return counted;
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

std::map<std::string, long> objects() {
  std::map<std::string, long> counts;
  static const bool active = (GSDebugAllocationActive(1), true);
  if (!active) return counts;
  Class* classes = GSDebugAllocationClassList();
  for (Class* each = classes; classes && *each; ++each) {
    const std::string name = class_getName(*each);
    counts[name] = GSDebugAllocationCount(*each);
  }
  if (classes) ::free(classes);
  return counts;
}

}  // namespace test::day
