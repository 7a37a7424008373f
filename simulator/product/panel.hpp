// The library's panel, as somebody in front of the screen meets it.
#pragma once

#include "platform/uikit/scroll_view.hpp"

namespace sim::product {

/** The panel in the key window, the front one of several; nothing when there is none. */
UIView shownPanel();

/** What the panel has under a key; nothing without a panel, or where it has no such key. */
bridge::Object panelPart(UIView panel, NSString key);

/**
 * Drags the panel's scroll view until that page stands in it, without letting time pass. Throws UsageError
 * when there is no panel, or when it does not let itself be turned.
 */
void turnToPage(int page);

}  // namespace sim::product
