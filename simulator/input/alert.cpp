// Alerts, as somebody in front of the screen meets them.
#include "simulator/input/alert.hpp"

#include "bridge/runtime.hpp"
#include "simulator/app/run_loop.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/uikit/presentation.hpp"
#include "simulator/uikit/text_field.hpp"
#include "simulator/uikit/view_controller.hpp"
#include "simulator/uikit/window.hpp"

namespace sim::input {
namespace {

constexpr double keyTime = 0.1;  // seconds

UIAlertController neededAlert() {
  const UIAlertController alert = frontAlert();
  if (!alert) throw UsageError("there is no alert");
  return alert;
}

// The bytes of a UTF-8 text's character that begins there.
std::size_t characterLength(const std::string& text, std::size_t at) {
  std::size_t end = at + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end - at;
}

}  // namespace

UIAlertController frontAlert() {
  UIAlertController front;
  for (const UIWindow window : uikit::windows())
    for (UIViewController one = window.rootViewController(); one; one = one.presentedViewController())
      if (bridge::isKindOf<UIAlertController>(one) && !uikit::stateOf(one).beingDismissed)
        front = bridge::as<UIAlertController>(one);
  return front;
}

void chooseInAlert(std::string_view title) {
  const bridge::Pool pool;
  const auto alert = bridge::retained(neededAlert());
  tap(findNamed(title, {alert->view()}));
  if (uikit::stateOf(alert.get()).beingDismissed) letPass(uikit::dismissingDuration);
}

void enterInAlert(const std::string& text) {
  const bridge::Pool pool;
  const NSArray fields = neededAlert().textFields();
  if (fields.count() == 0) throw UsageError("the alert has no text field");
  const auto field = bridge::retained(bridge::as<UITextField>(fields.objectAtIndex(0)));
  if (!field->isFirstResponder()) tap(findView(field, "the alert's text field"));
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = characterLength(text, at);
    uikit::typeText(field, NSString::stringWithUTF8String(text.substr(at, length).c_str()));
    letPass(keyTime);
    at += length;
  }
}

}  // namespace sim::input
