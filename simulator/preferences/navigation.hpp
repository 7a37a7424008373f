// The pages of Settings one over the other, below a bar with a title and the way back.
#pragma once

#include <functional>

#include "platform/preferences/list_controller.hpp"

namespace sim::preferences {

/** A view of that frame with the page in it, and room for the status bar above. */
UIViewController makeNavigation(CGRect frame, PSListController first, NSString title);
/**
 * Where `push` brings pages from now on. Those that a list beside it leads to take the place of what is
 * there; on phones there is no such list.
 */
void pushInto(UIViewController navigation, PSListController listBeside);

/** A page comes from the right, over the one that led to it. */
void push(PSListController page, PSListController from, NSString title);

/** Whether its pages come beside it. */
bool standsBeside(PSListController controller);
/** The bar has its title and its line where the page's large title is not seen. */
void followScrolling(PSListController controller);
/** The page that is seen. */
PSListController topPage();

inline constexpr double pushDuration = 0.35;  // seconds

void defineNavigation();

}  // namespace sim::preferences
