// Each step of a script.
#include "simulator/app/steps.hpp"

#include "bridge/runtime.hpp"
#include "simulator/app/home_steps.hpp"
#include "simulator/app/outside.hpp"
#include "simulator/app/panel_steps.hpp"
#include "simulator/app/row_steps.hpp"
#include "simulator/app/run_loop.hpp"
#include "simulator/app/touch_steps.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

// Where a file cannot be written, the script's line says so.
void output(const Step& step, auto write) {
  try {
    write(step.text(0));
  } catch (const std::runtime_error& error) {
    throw UsageError(step.place + ": " + error.what());
  }
}

}  // namespace

void perform(Simulation& simulation, const Step& step) {
  bridge::Pool pool;
  switch (step.kind) {
    case StepKind::wait:
      return letPass(step.number(0));
    case StepKind::swipe:
    case StepKind::tap:
    case StepKind::twoFingerTap:
    case StepKind::press:
    case StepKind::drag:
    case StepKind::finger:
    case StepKind::page:
      return performTouch(step);
    case StepKind::increment:
    case StepKind::decrement:
    case StepKind::slide:
    case StepKind::type:
    case StepKind::paste:
    case StepKind::apply:
    case StepKind::cancel:
      return performRow(step);
    case StepKind::pick:
    case StepKind::choose:
    case StepKind::enter:
    case StepKind::call:
      return performPanelStep(step);
    case StepKind::launch:
    case StepKind::home:
    case StepKind::open:
    case StepKind::edit:
      return performHome(step);
    case StepKind::rotate:
      return simulation.rotate(step.text(0) == "landscape" ? Orientation::landscape : Orientation::portrait);
    case StepKind::lock:
      return simulation.lock();
    case StepKind::unlock:
      return simulation.unlock();
    case StepKind::snapshot:
      return output(step, [&](auto& file) { simulation.snapshot(file); });
    case StepKind::report:
      return output(step, [&](auto& file) { simulation.report(file); });
    case StepKind::write:
      return writePreference(step);
    case StepKind::message:
      return sendMessage(simulation, step);
  }
}

}  // namespace sim
