// UIBezierPath.
#pragma once

namespace sim::uikit {

void defineBezierPath();

}  // namespace sim::uikit
