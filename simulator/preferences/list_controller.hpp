// PSListController and its kin: pages of rows.
#pragma once

#include <string_view>
#include <vector>

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** A row was tapped: goes to its page, chooses it, or does what its button does. */
void select(PSListController controller, PSSpecifier specifier);

/** The rows on the page, top to bottom. */
std::vector<PSTableCell> cellsOf(PSListController controller);

/** Settings' own pages look for their property list in the bundle that they come from. */
void useBundle(PSListController controller, NSBundle bundle);

void defineListControllers();

}  // namespace sim::preferences
