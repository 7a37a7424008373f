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

/** The title stands large above the rows, too, and scrolls with them. */
void setLargeTitle(PSListController controller, NSString title);
/** How much of its large title is seen below the bar, in points. */
CGFloat largeTitleSeen(PSListController controller);

void defineListControllers();

}  // namespace sim::preferences
