// UIToolbar.
#pragma once

namespace sim::uikit {

void defineToolbar();

}  // namespace sim::uikit
