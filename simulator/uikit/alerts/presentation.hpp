// View controllers that are shown over others, in the window of those.
#pragma once

#include "platform/uikit/view_controller.hpp"

namespace sim::uikit {

/** Seconds that an animated dismissal takes. */
inline constexpr double dismissingDuration = 0.25;

void present(UIViewController self, UIViewController other, BOOL animated,
             bridge::BlockRef<void()> completion);
void dismiss(UIViewController self, BOOL animated, bridge::BlockRef<void()> completion);

/** From now on every presentation is refused with a warning, as one is while another begins; or no longer. */
void refusePresentations(bool refuse);

}  // namespace sim::uikit
