// PSTableCell: a row on its page, with the control that it has.
#pragma once

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** For a specifier of that controller's, as wide as said. */
bridge::Strong<PSTableCell> makeCell(PSSpecifier specifier, PSListController controller, CGFloat width);

/** Shows what the specifier's value is now. */
void refresh(PSTableCell cell);

/** The row's switch or slider; nil when it has none. */
UIView controlOf(PSTableCell cell);

/** A row of a list of choices: whether it is the chosen one. */
void setChecked(PSTableCell cell, bool checked);

void defineTableCell();

}  // namespace sim::preferences
