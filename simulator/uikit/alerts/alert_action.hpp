// UIAlertAction, and the button that an alert shows for it.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/alert_controller.hpp"

namespace sim::uikit {

/** Calls the action's handler, where it has one. */
void perform(UIAlertAction action);

struct AlertButton : bridge::Face<"_UIAlertControllerActionView", UIControl> {};

/** A button with the action's title in the manner of its style; as large as it is made. */
bridge::Strong<AlertButton> makeAlertButton(UIAlertAction action);
UIAlertAction actionOf(AlertButton button);
/** The width that the title takes on one line, in points. */
double titleWidth(AlertButton button);

}  // namespace sim::uikit
