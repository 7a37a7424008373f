// Looking at a home screen's views from a page: which there are, which lies under a point, and what icon
// lists answer.
#pragma once

#include <span>
#include <string>

#include "platform/uikit/view.hpp"
#include "simulator/app/program.hpp"

namespace sim {

/** What a page calls a view by, as long as the view lives. */
std::string idOf(UIView view);
/** The view on the screen that has that id; throws UsageError when there is none, or none any more. */
UIView viewWithId(const std::string& id);

/** The view that is seen at a point of the screen: the front one that shows something there. None where
 * nothing is. */
UIView viewSeenAt(CGPoint onScreen);

std::span<const PageMessage> inspectorMessages();

}  // namespace sim
