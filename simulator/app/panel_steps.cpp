// The steps that answer alerts, turn the picker and send the panel messages.
#include "simulator/app/panel_steps.hpp"

#include <string>

#include "bridge/runtime.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/alert.hpp"
#include "simulator/input/panel.hpp"
#include "simulator/input/picker.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim::steps {

void pick(Simulation&, const Step& step) { input::pickRow(static_cast<int>(step.number(0))); }

void choose(Simulation&, const Step& step) { input::chooseInAlert(step.text(0)); }

void enter(Simulation&, const Step& step) { input::enterInAlert(step.text(0)); }

void call(Simulation&, const Step& step) {
  const UIView panel = input::shownPanel();
  if (!panel) throw UsageError("there is no panel");
  if (step.text(0) == "exportSettings")
    bridge::Message<"exportSettings", void()>::send(panel.raw);
  else
    bridge::Message<"openSettings", void()>::send(panel.raw);
  settle();
}

}  // namespace sim::steps
