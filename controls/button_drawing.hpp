// The two looks of BButton.
#pragma once

#include "controls/button.hpp"

namespace tilo {

// As the button's style wants it, into the current context; nothing for a style that is none.
void drawButton(BButton self, CGRect rect);
// Style 0: a body that is lit from above, with an inner shadow and a lit outer edge.
void drawRaised(BButton self, CGRect rect, CGContextRef context);
// Style 1: a filled and outlined rectangle.
void drawFlat(BButton self, CGRect rect, CGContextRef context);

}  // namespace tilo
