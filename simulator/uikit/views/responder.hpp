// UIResponder.
#pragma once

namespace sim::uikit {

void defineResponder();

}  // namespace sim::uikit
