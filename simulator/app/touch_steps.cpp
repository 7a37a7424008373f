// The steps that are made by fingers.
#include <algorithm>

#include "simulator/app/steps.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim {
namespace {

constexpr double usualDrag = 0.5;    // seconds, where a step does not say
constexpr double fingersApart = 20;  // points between the fingers of a two-finger tap

CGPoint pointAt(const Step& step, std::size_t index) { return {step.number(index), step.number(index + 1)}; }

void swipe(Simulation&, const Step& step) {
  const std::string& word = step.text(0);
  const auto direction = word == "up"     ? input::Direction::up
                         : word == "down" ? input::Direction::down
                         : word == "left" ? input::Direction::left
                                          : input::Direction::right;
  const CGSize screen = uikit::screenSize();
  input::swipe(direction, step.has(1) ? pointAt(step, 1) : CGPoint{screen.width / 2, screen.height / 2});
}

void tap(Simulation&, const Step& step) {
  input::tap(step.has(1) ? pointAt(step, 0) : input::findNamed(step.text(0)));
}

// The fingers stand on either side of a given point, as far as the screen goes.
void twoFingerTap(Simulation&, const Step& step) {
  if (step.has(0)) {
    const auto [x, y] = pointAt(step, 0);
    const double left = std::clamp(x - fingersApart / 2, 0.0, uikit::screenSize().width - 1 - fingersApart);
    return input::twoFingerTap({left, y}, {left + fingersApart, y});
  }
  const CGPoint one = input::freePoint();
  input::twoFingerTap(one, input::freePoint(one, fingersApart));
}

void press(Simulation&, const Step& step) {
  input::press(step.number(0), step.has(1) ? pointAt(step, 1) : input::freePoint());
}

void drag(Simulation&, const Step& step) {
  input::drag(pointAt(step, 0), pointAt(step, 2), step.has(4) ? step.number(4) : usualDrag);
}

void finger(Simulation&, const Step& step) {
  const auto number = static_cast<int>(step.number(0));
  const std::string& phase = step.text(1);
  const double force = step.has(4) ? step.number(4) : input::usualForce;
  if (phase == "down") return input::fingerDown(number, pointAt(step, 2), force);
  if (phase == "move") return input::fingerMove(number, pointAt(step, 2), force);
  input::fingerUp(number, pointAt(step, 2));
}

constexpr Kind direction = kinds::choice("up|down|left|right"), phase = kinds::choice("down|move|up");
using kinds::x, kinds::y;

constexpr Kind fingerNumber = kinds::whole("N", 0, 10), force = kinds::number("FORCE", 0, kinds::anything);

constexpr StepRow rows[] = {
    {"swipe", swipe, with(direction), "one finger flicks, from the middle of the screen or from there",
     "0.15 s", with(direction, x, y)},
    {"tap", tap, with(kinds::name), "one finger taps on the visible thing of that name, or there", "0.05 s",
     with(x, y)},
    {"two-finger-tap", twoFingerTap, with(), "two fingers; without a place near the middle, where no icon is",
     "0.05 s", with(x, y)},
    {"press", press, with(force),
     "a touch that rises to that force in several moves, and lifts; the same place", "0.3 s",
     with(force, x, y)},
    {"drag", drag, with(x, y, x, y), "one finger, in 60 Hz moves", "as said, or 0.5 s",
     with(x, y, x, y, kinds::seconds)},
    {"finger", finger, with(fingerNumber, phase, x, y), "one of several fingers, by hand", "none",
     with(fingerNumber, phase, x, y, force)},
};

}  // namespace

StepTable touchSteps() { return rows; }

}  // namespace sim
