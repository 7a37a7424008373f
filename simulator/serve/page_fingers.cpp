// From a page's numbers to fingers of the device.
#include "simulator/serve/page_fingers.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "simulator/device/usage_error.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::serve {
namespace {

constexpr int fingersPerPage = 10;

int numberOf(std::uint32_t page, int own) { return static_cast<int>(page % 1000) * fingersPerPage + own; }

CGPoint onScreen(CGPoint place) {
  const CGSize screen = uikit::screenSize();
  return {std::clamp<CGFloat>(place.x, 0, screen.width - 1),
          std::clamp<CGFloat>(place.y, 0, screen.height - 1)};
}

}  // namespace

void PageFingers::obey(std::uint32_t page, const Json& message) {
  const auto number = message.value("id").get<std::int64_t>();
  if (number < 0 || number >= fingersPerPage)
    throw UsageError(fmt::format("no finger has the number {}", number));
  const int own = static_cast<int>(number);
  const auto phase = message.value("phase").get<std::string>();
  const CGPoint place = onScreen({message.value("x").get<double>(), message.value("y").get<double>()});
  const Json force = message.value("force");
  const double pressed = force.isNull() ? input::usualForce : force.get<double>();
  if (phase == "down") {
    input::fingerDown(numberOf(page, own), place, pressed);
    down[page][own] = place;
  } else if (phase == "move") {
    input::fingerMove(numberOf(page, own), place, pressed);
    down[page][own] = place;
  } else if (phase == "up") {
    input::fingerUp(numberOf(page, own), place);
    down[page].erase(own);
  } else {
    throw UsageError(fmt::format("no finger does '{}'", phase));
  }
}

void PageFingers::lift(std::uint32_t page) {
  const auto found = down.find(page);
  if (found == down.end()) return;
  // The screen may have been turned under them.
  for (const auto& [own, place] : found->second) input::fingerUp(numberOf(page, own), onScreen(place));
  down.erase(found);
}

}  // namespace sim::serve
