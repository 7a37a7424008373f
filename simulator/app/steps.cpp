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
    {"wait", wait, with(kinds::seconds),
     "time passes, 0 to 1,000,000 s: timers, animations and queued work happen at their moments", "as said"},
    {"rotate", rotate, with(kinds::choice("portrait|landscape")),
     "the device turns; where the home screen does not turn, only time passes", "0.4 s"},
    {"lock", [](Simulation& simulation, const Step&) { simulation.lock(); }, with(), "the lock screen comes",
     "none"},
    {"unlock", [](Simulation& simulation, const Step&) { simulation.unlock(); }, with(), "and goes", "none"},
    {"snapshot", output<&Simulation::snapshot>, with(kinds::file), "PNG of the screen now", "none"},
    {"report", output<&Simulation::report>, with(kinds::file), "JSON now; `-` prints it", "none"},
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
