// The grouped table of a page: headers, rows and footers, one below the other, as high as they are.
#pragma once

#include <functional>
#include <vector>

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** An empty one, which asks to be built whenever it has another width. */
bridge::Strong<UIScrollView> makeTable(std::function<void()> build);

/** Fills it with the controller's rows, each of which it asks for its cell. */
std::vector<PSTableCell> buildTable(UIScrollView table, PSListController controller);

/** The specifier of a row: sections are groups, and rows count from 0 in each. */
PSSpecifier rowAt(NSArray specifiers, NSIndexPath path);

void defineTable();

}  // namespace sim::preferences
