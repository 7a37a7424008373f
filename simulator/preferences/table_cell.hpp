// PSTableCell: a row on its page, with the control that it has.
#pragma once

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** For a specifier of that controller's, as wide as said. */
bridge::Strong<PSTableCell> makeCell(PSSpecifier specifier, PSListController controller, CGFloat width);

/** Shows what the specifier's value is now. */
void refresh(PSTableCell cell);

/** The row's switch, slider or stepper; nil when it has none. */
UIView controlOf(PSTableCell cell);

/** Where a row's text begins. */
CGFloat textLeft(PSSpecifier specifier);
/** A row that a finger is on, or whose page is seen: grey. */
void setSelected(PSTableCell cell, bool selected);
/** Its page has been left: it fades to white. */
void deselect(PSTableCell cell);
/** A row of a list of choices: whether it is the chosen one. */
void setChecked(PSTableCell cell, bool checked);

void defineTableCell();

}  // namespace sim::preferences
