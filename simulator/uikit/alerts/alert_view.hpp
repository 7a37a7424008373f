// The card that an alert is.
#pragma once

#include "simulator/uikit/alerts/alert_action.hpp"

namespace sim::uikit {

struct AlertView : bridge::Face<"_UIAlertControllerView", UIView> {};

/** Texts may be nil. */
bridge::Strong<AlertView> makeAlertView(NSString title, NSString message);
/** The card's buttons stand in this order, save that one of the style for cancelling has its own place. */
void addButton(AlertView card, bridge::Strong<AlertButton> button);

void addField(AlertView card, UITextField field);

/** The part of a stage in which alerts stand: what the keyboard leaves of it. */
CGRect roomForAlerts(UIView stage);
/** Where an alert's middle comes to lie, so that its edges fall on pixels. */
CGPoint alertCenter(const CGRect& room, CGSize size);

}  // namespace sim::uikit
