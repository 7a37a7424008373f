// The grouped table of a page: headers, rows and footers, one below the other, as high as they are.
#pragma once

#include <functional>
#include <vector>

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** An empty one, which asks to be built whenever it has another width, and says so when it is scrolled. */
bridge::Strong<UIScrollView> makeTable(std::function<void()> build, std::function<void()> scrolled);

/**
 * Fills it with the controller's rows, each of which it asks for its cell. A title above them, nil for none,
 * is large, and scrolls with them.
 */
std::vector<PSTableCell> buildTable(UIScrollView table, PSListController controller, NSString title);

/** The specifier of a row: sections are groups, and rows count from 0 in each. */
PSSpecifier rowAt(NSArray specifiers, NSIndexPath path);

void defineTable();

}  // namespace sim::preferences
