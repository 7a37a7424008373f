// Looking for a row by its title, or by the header of a group of one, which is all that a slider is called
// by.
#include "simulator/preferences/shown_rows.hpp"

#include "simulator/preferences/list_controller.hpp"
#include "simulator/preferences/navigation.hpp"
#include "simulator/preferences/settings.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace sim::preferences {

PSTableCell shownCell(const std::string& title) {
  if (!settingsAreShown()) return {};
  uikit::layoutPass();
  for (const PSTableCell cell : cellsOf(topPage()))
    if (const NSString name = cell.specifier().name(); name && title == name.UTF8String()) return cell;
  return {};
}

}  // namespace sim::preferences
