// Making icon lists.
#pragma once

#include <vector>

#include "platform/springboard/icon_list_view.hpp"

namespace sim::springboard {

// Shows `icons` in that list, in order.
// Where its answers put them now.
void layOutIcons(SBIconListView list);

void setIcons(SBIconListView list, std::vector<bridge::Strong<SBIcon>> icons);
const std::vector<bridge::Strong<SBIconView>>& iconViews(SBIconListView list);

// The page of the home screen that the list is; lists that are none have -1.
void setPage(SBIconListView list, int page);

void defineIconListView();

}  // namespace sim::springboard
