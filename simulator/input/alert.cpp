// Alerts, as somebody in front of the screen meets them.
#include "simulator/input/alert.hpp"

#include "bridge/runtime.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/input/typing.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/alerts/presentation.hpp"
#include "simulator/uikit/views/view_controller.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::input {
namespace {

UIAlertController neededAlert() {
  const UIAlertController alert = frontAlert();
  if (!alert) throw UsageError("there is no alert");
  return alert;
}

}  // namespace

UIAlertController frontAlert() {
  UIAlertController front;
  for (const UIWindow window : uikit::windows())
    // An application that is left takes its alerts along.
    if (!window.hidden() && window.alpha() > 0)
      for (UIViewController one = window.rootViewController(); one; one = one.presentedViewController())
        if (bridge::isKindOf<UIAlertController>(one) && !uikit::stateOf(one).beingDismissed)
          front = bridge::as<UIAlertController>(one);
  return front;
}

void chooseInAlert(std::string_view title) {
  const bridge::Pool pool;
  const auto alert = bridge::retained(neededAlert());
  tapAtOnce(findNamed(title, {alert->view()}));
  if (uikit::stateOf(alert.get()).beingDismissed) letPass(uikit::dismissingDuration);
}

void enterInAlert(std::string_view text) {
  const bridge::Pool pool;
  const NSArray fields = neededAlert().textFields();
  if (fields.count() == 0) throw UsageError("the alert has no text field");
  const auto field = bridge::retained(bridge::as<UITextField>(fields.objectAtIndex(0)));
  edit(field, "the alert's text field");
  typeText(field, text);
}

}  // namespace sim::input
