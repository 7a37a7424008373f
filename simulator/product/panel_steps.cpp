// The steps that turn the panel's pages and send it messages.
#include "bridge/runtime.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/panel.hpp"
#include "simulator/product/product.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim::product {
namespace {

void page(Simulation&, const Step& step) { turnToPage(step.text(0) == "0" ? 0 : 1); }

void call(Simulation&, const Step& step) {
  const UIView panel = shownPanel();
  if (!panel) throw UsageError("there is no panel");
  if (step.text(0) == "exportSettings")
    bridge::Message<"exportSettings", void()>::send(panel.raw);
  else
    bridge::Message<"openSettings", void()>::send(panel.raw);
  settle();
}

constexpr StepRow rows[] = {
    {"page", page, with(kinds::choice("0|1")), "a finger drags the panel to that page", "none"},
    {"call", call, with(kinds::choice("exportSettings|openSettings")),
     "sends the panel a message that none of its controls sends", "none"},
};

}  // namespace

StepTable panelSteps() { return rows; }

}  // namespace sim::product
