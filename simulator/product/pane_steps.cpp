// The steps that use the page in Settings, by the titles of its rows.
#include <fmt/format.h>

#include <cmath>

#include "platform/uikit/switch.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/preferences/settings.hpp"
#include "simulator/preferences/shown_rows.hpp"
#include "simulator/product/product.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::product {
namespace {

constexpr int scrollMoves = 10;

void settings(Simulation&, const Step&) {
  preferences::openSettings("Tilo");
  letPass(springboard::launchDuration);
}

PSTableCell cellNamed(const std::string& title) {
  if (const PSTableCell cell = preferences::shownCell(title)) return cell;
  throw UsageError(fmt::format("Settings shows no row \"{}\"", title));
}

void toggle(Simulation&, const Step& step) {
  const UIView control = preferences::controlOf(cellNamed(step.text(0)));
  if (!bridge::isKindOf<UISwitch>(control))
    throw UsageError(fmt::format("\"{}\" has no switch", step.text(0)));
  input::tap(input::findView(control, fmt::format("the switch of \"{}\"", step.text(0))));
}

// A finger that holds still before it lifts leaves the page where it is.
void scrollTo(Simulation&, const Step& step) {
  const PSTableCell cell = cellNamed(step.text(0));
  const auto page = bridge::as<UIScrollView>(cell.superview());
  const CGRect frame = cell.frame(), seen = page.bounds();
  const CGFloat most = std::max<CGFloat>(page.contentSize().height - seen.size.height, 0);
  const CGFloat wanted =
      std::clamp<CGFloat>(frame.origin.y + frame.size.height / 2 - seen.size.height / 2, 0, most);
  const CGPoint middle = input::middleOnScreen(page);
  const CGFloat edge = middle.x - seen.size.width / 2 + 4;  // beside all sliders
  const CGFloat reach = seen.size.height / 3;
  while (std::abs(page.contentOffset().y - wanted) > 1) {
    const CGFloat before = page.contentOffset().y;
    // The first ten points of a drag do not scroll.
    const CGFloat way = std::clamp<CGFloat>(before - wanted, -reach, reach);
    input::fingerDown(1, {edge, middle.y});
    for (int i = 1; i <= scrollMoves; ++i) input::fingerMove(1, {edge, middle.y + way * i / scrollMoves});
    letPass(0.5);
    input::fingerUp(1, {edge, middle.y + way});
    letPass(1);
    if (std::abs(page.contentOffset().y - before) < 1) break;
  }
}

constexpr StepRow rows[] = {
    {"settings", settings, with(), "opens Settings with the library's page in front", "0.4 s"},
    {"toggle", toggle, with(kinds::name), "taps the switch of the page's row with that title", "0.05 s"},
    {"scroll-to", scrollTo, with(kinds::name), "a finger drags the page until that row is in its middle",
     "1.5 s a drag"},
};

}  // namespace

StepTable paneSteps() { return rows; }

}  // namespace sim::product
