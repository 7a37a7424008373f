// The steps that answer alerts and turn pickers.
#include "simulator/app/steps.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/alert.hpp"
#include "simulator/input/picker.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/alerts/presentation.hpp"

namespace sim {
namespace {

void pick(Simulation&, const Step& step) { input::pickRow(static_cast<int>(step.number(0))); }

void choose(Simulation&, const Step& step) { input::chooseInAlert(step.text(0)); }

void enter(Simulation&, const Step& step) { input::enterInAlert(step.text(0)); }

void refuseAlerts(Simulation&, const Step&) { uikit::refusePresentations(true); }

void dismiss(Simulation&, const Step&) {
  const UIAlertController alert = input::frontAlert();
  if (!alert) throw UsageError("there is no alert");
  alert.dismissViewControllerAnimated_completion(YES, {});
  letPass(uikit::dismissingDuration);
}

constexpr StepRow rows[] = {
    {"pick", pick, with(kinds::whole("ROW", 0, 1e6)),
     "a finger turns the picker in front to that row, counted from 0", "none"},
    {"choose", choose, with(kinds::name),
     "taps the button of that title of the alert in front; done when the alert has gone", "0.25 s"},
    {"enter", enter, with(kinds::text), "types into that alert's first text field", "0.1 s a key"},
    {"dismiss", dismiss, with(), "that alert goes without a button, as when the system takes it down",
     "0.25 s"},
    {"refuse-alerts", refuseAlerts, with(), "from now on no alert comes, as while another is coming", "none"},
};

}  // namespace

StepTable alertSteps() { return rows; }

}  // namespace sim
