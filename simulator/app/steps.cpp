// The table of a script's steps: name, arguments, what it does, and the line that tells so. The parser, its
// messages,
// --list-steps and docs/simulator.md come from it.
#include "simulator/app/steps.hpp"

#include "bridge/runtime.hpp"
#include "simulator/app/home_steps.hpp"
#include "simulator/app/outside.hpp"
#include "simulator/app/panel_steps.hpp"
#include "simulator/app/row_steps.hpp"
#include "simulator/app/touch_steps.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim {
namespace {

using S = Shape;

constexpr std::nullopt_t only = std::nullopt;  // there is but one way to give the arguments
constexpr Arguments nothing{};

// A file that cannot be written is the script's mistake.
template <auto Write>
void output(Simulation& simulation, const Step& step) {
  try {
    (simulation.*Write)(step.text(0));
  } catch (const std::runtime_error& error) {
    throw UsageError(error.what());
  }
}

void wait(Simulation&, const Step& step) { letPass(step.number(0)); }

void rotate(Simulation& simulation, const Step& step) {
  simulation.rotate(step.text(0) == "landscape" ? Orientation::landscape : Orientation::portrait);
}

const StepRow table[] = {
    {"wait",
     {{S::seconds}},
     only,
     wait,
     "time passes, 0 to 1,000,000 s: timers, animations and queued work happen at their moments",
     "as said"},
    {"swipe",
     {{S::direction}},
     {{{S::direction, S::coordinate, S::coordinate}}},
     steps::swipe,
     "one finger flicks, from the middle of the screen or from there",
     "0.15 s"},
    {"tap",
     {{S::name}},
     {{{S::coordinate, S::coordinate}}},
     steps::tap,
     "one finger taps on the visible thing of that name, or there",
     "0.05 s"},
    {"two-finger-tap",
     nothing,
     {{{S::coordinate, S::coordinate}}},
     steps::twoFingerTap,
     "two fingers; without a place near the middle, where no icon is",
     "0.05 s"},
    {"press",
     {{S::force}},
     {{{S::force, S::coordinate, S::coordinate}}},
     steps::press,
     "a touch that rises to that force in several moves, and lifts; the same place",
     "0.3 s"},
    {"drag",
     {{S::coordinate, S::coordinate, S::coordinate, S::coordinate}},
     {{{S::coordinate, S::coordinate, S::coordinate, S::coordinate, S::seconds}}},
     steps::drag,
     "one finger, in 60 Hz moves",
     "as said, or 0.5 s"},
    {"finger",
     {{S::finger, S::phase, S::coordinate, S::coordinate}},
     {{{S::finger, S::phase, S::coordinate, S::coordinate, S::force}}},
     steps::finger,
     "one of several fingers, by hand",
     "none"},
    {"increment",
     {{S::name}},
     {{{S::name, S::times}}},
     steps::increment,
     "presses the plus button of the panel's row with that caption",
     "0.3 s each"},
    {"decrement", {{S::name}}, {{{S::name, S::times}}}, steps::decrement, "the minus button", "0.3 s each"},
    {"slide",
     {{S::name, S::value}},
     only,
     steps::slide,
     "a finger drags the row's thumb to that value, in ten moves",
     "none"},
    {"type",
     {{S::name, S::text}},
     only,
     steps::type,
     "taps the row's number field, empties it with the delete key and presses a key for each character, "
     "those that "
     "lead to other keys included; what the keyboard lacks comes as from one that is plugged in",
     "0.1 s a key"},
    {"paste",
     {{S::name, S::text}},
     only,
     steps::paste,
     "the same, but the text comes from the pasteboard at once",
     "0.1 s a deletion"},
    {"apply",
     {{S::name}},
     only,
     steps::apply,
     "presses that button above the keyboard, while the row's number field is edited",
     "none"},
    {"cancel", {{S::name}}, only, steps::cancel, "likewise", "none"},
    {"page", {{S::page}}, only, steps::page, "a finger drags the panel to that page", "none"},
    {"pick",
     {{S::row}},
     only,
     steps::pick,
     "a finger turns the picker in front to that row, counted from 0",
     "none"},
    {"choose",
     {{S::name}},
     only,
     steps::choose,
     "taps the button of that title of the alert in front; done when the alert has gone",
     "0.25 s"},
    {"enter", {{S::text}}, only, steps::enter, "types into that alert's first text field", "0.1 s a key"},
    {"call",
     {{S::selector}},
     only,
     steps::call,
     "sends the panel a message that none of its controls sends",
     "none"},
    {"launch",
     {{S::name}},
     only,
     steps::launch,
     "taps the icon; the application opens while time passes",
     "0.05 s"},
    {"open", {{S::name}}, only, steps::open, "taps the folder, which opens while time passes", "0.05 s"},
    {"home", nothing, only, steps::home,
     "the home button: leaves the application, closes the folder, or ends editing", "none"},
    {"edit", nothing, only, steps::edit, "the home screen's editing mode, until `home`", "none"},
    {"write",
     {{S::setting}},
     only,
     steps::write,
     "another process writes the preference domain and tells nobody",
     "none"},
    {"message",
     {{S::word}, S::setting},
     only,
     steps::message,
     "a message to the messaging centre, delivered before the step ends",
     "none"},
    {"rotate",
     {{S::orientation}},
     only,
     rotate,
     "the device turns; where the home screen does not turn, only time passes",
     "0.4 s"},
    {"lock", nothing, only, [](Simulation& simulation, const Step&) { simulation.lock(); },
     "the lock screen comes", "none"},
    {"unlock", nothing, only, [](Simulation& simulation, const Step&) { simulation.unlock(); }, "and goes",
     "none"},
    {"snapshot", {{S::file}}, only, output<&Simulation::snapshot>, "PNG of the screen now", "none"},
    {"report", {{S::file}}, only, output<&Simulation::report>, "JSON now; `-` prints it", "none"},
};

}  // namespace

StepTable stepTable() { return table; }

void perform(Simulation& simulation, const Step& step) {
  bridge::Pool pool;
  try {
    step.row->action(simulation, step);
  } catch (const UsageError& error) {
    throw UsageError(step.place + ": " + error.what());
  }
}

}  // namespace sim
