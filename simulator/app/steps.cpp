// The steps that let time pass, turn and lock the device, and show what it looks like; and doing any step.
#include "simulator/app/steps.hpp"

#include "bridge/runtime.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim {
namespace {

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

constexpr StepRow rows[] = {
    {"wait",
     {{kinds::seconds}},
     {},
     wait,
     "time passes, 0 to 1,000,000 s: timers, animations and queued work happen at their moments",
     "as said"},
    {"rotate",
     {{kinds::choice("portrait|landscape")}},
     {},
     rotate,
     "the device turns; where the home screen does not turn, only time passes",
     "0.4 s"},
    {"lock",
     {},
     {},
     [](Simulation& simulation, const Step&) { simulation.lock(); },
     "the lock screen comes",
     "none"},
    {"unlock", {}, {}, [](Simulation& simulation, const Step&) { simulation.unlock(); }, "and goes", "none"},
    {"snapshot", {{kinds::file}}, {}, output<&Simulation::snapshot>, "PNG of the screen now", "none"},
    {"report", {{kinds::file}}, {}, output<&Simulation::report>, "JSON now; `-` prints it", "none"},
};

}  // namespace

StepTable deviceSteps() { return rows; }

void perform(Simulation& simulation, const Step& step) {
  bridge::Pool pool;
  try {
    step.row->action(simulation, step);
  } catch (const UsageError& error) {
    throw UsageError(step.place + ": " + error.what());
  }
}

}  // namespace sim
