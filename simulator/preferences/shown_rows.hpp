// The rows that Settings shows, for whoever wants to touch them.
#pragma once

#include <string>

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** The row of that title on the page in front, or in the list beside it; nil when there is none. */
PSTableCell shownCell(const std::string& title);

/** Its switch or slider; nil when it has none. */
UIView controlOf(PSTableCell cell);

}  // namespace sim::preferences
