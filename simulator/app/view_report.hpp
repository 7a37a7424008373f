// What the report says of views.
#pragma once

#include "platform/uikit/view.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/quartz/color.hpp"

namespace sim {

/** [red, green, blue], 0 to 255. */
Json opaqueColor(const Color& color);

/** A view as it is on screen at this moment, without what is in it. */
Json describe(UIView view);
/** The view and everything in it, as "children", back to front. */
Json viewTree(UIView view, Json (*description)(UIView) = describe);

}  // namespace sim
