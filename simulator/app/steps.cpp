// Each step of a script.
#include "simulator/app/steps.hpp"

#include "bridge/runtime.hpp"
#include "simulator/app/run_loop.hpp"

namespace sim {

void perform(Simulation& simulation, const Step& step) {
  bridge::Pool pool;
  switch (step.kind) {
    case StepKind::wait:
      return letPass(step.number(0));
    case StepKind::rotate:
      return simulation.rotate(step.text(0) == "landscape" ? Orientation::landscape : Orientation::portrait);
    case StepKind::lock:
      return simulation.lock();
    case StepKind::unlock:
      return simulation.unlock();
    case StepKind::snapshot:
      return simulation.snapshot(step.text(0));
    case StepKind::report:
      return simulation.report(step.text(0));
  }
}

}  // namespace sim
