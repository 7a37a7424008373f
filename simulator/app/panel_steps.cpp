// The steps that answer alerts, turn the picker and send the panel messages.
#include "simulator/app/panel_steps.hpp"

#include <string>

#include "bridge/runtime.hpp"
#include "simulator/app/run_loop.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/alert.hpp"
#include "simulator/input/panel.hpp"
#include "simulator/input/picker.hpp"

namespace sim {
namespace {

void call(const std::string& selector) {
  const UIView panel = input::shownPanel();
  if (!panel) throw UsageError("there is no panel");
  if (selector == "exportSettings")
    bridge::Message<"exportSettings", void()>::send(panel.raw);
  else
    bridge::Message<"openSettings", void()>::send(panel.raw);
  settle();
}

void act(const Step& step) {
  switch (step.kind) {
    case StepKind::pick:
      return input::pickRow(static_cast<int>(step.number(0)));
    case StepKind::choose:
      return input::chooseInAlert(step.text(0));
    case StepKind::enter:
      return input::enterInAlert(step.text(0));
    default:
      return call(step.text(0));
  }
}

}  // namespace

void performPanelStep(const Step& step) {
  try {
    act(step);
  } catch (const UsageError& error) {
    throw UsageError(step.place + ": " + error.what());
  }
}

}  // namespace sim
