// Alerts, as somebody in front of the screen meets them.
#pragma once

#include <string_view>

#include "platform/uikit/alert_controller.hpp"

namespace sim::input {

/** The alert in front, or on its way there; nothing when there is none, or it is on its way out. */
UIAlertController frontAlert();

/**
 * Taps the alert's button of that title, and lets time pass until the alert has gone and the button's action
 * is done. Throws UsageError when there is no alert or no such button, or when it cannot be tapped.
 */
void chooseInAlert(std::string_view title);

/**
 * Types into the alert's first text field, key by key, 0.1 s a key. Throws UsageError when there is no alert,
 * or it has no field, or that cannot be reached.
 */
void enterInAlert(std::string_view text);

}  // namespace sim::input
